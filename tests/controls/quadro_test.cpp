#include "controls/quadro.h"

#include <gtest/gtest.h>

#include <QFile>

#include "sostegno/cartella_temporanea.h"

namespace {

QString salvata(const CartellaTemporanea& cartella, QColor colore) {
  QPixmap tinta(40, 30);
  tinta.fill(colore);
  const QString file = cartella.file(QStringLiteral("figura.png"));
  EXPECT_TRUE(tinta.save(file));
  return file;
}

}  // namespace

TEST(Quadro, MostraLImmagineLetta) {
  const CartellaTemporanea cartella;
  Quadro quadro;
  ASSERT_TRUE(quadro.carica(salvata(cartella, Qt::blue)));
  quadro.resize(200, 400);
  EXPECT_EQ(quadro.grab().toImage().pixelColor(100, 200), QColor(Qt::blue));
  EXPECT_EQ(quadro.grab().toImage().pixelColor(100, 20), QColor(Qt::blue)) << "the edge goes on above it";
  quadro.resize(400, 100);
  EXPECT_EQ(quadro.grab().toImage().pixelColor(20, 50), QColor(Qt::blue)) << "and beside it";
}

TEST(Quadro, UnFileAssenteORottoLasciaQuellaDiPrima) {
  const CartellaTemporanea cartella;
  Quadro quadro;
  ASSERT_TRUE(quadro.carica(salvata(cartella, Qt::red)));
  EXPECT_FALSE(quadro.carica(cartella.file(QStringLiteral("assente.png"))));
  EXPECT_FALSE(quadro.carica(cartella.scrivi(QStringLiteral("rotta.png"), "niente")));
  EXPECT_EQ(quadro.immagine().toImage().pixelColor(20, 15), QColor(Qt::red));
}
