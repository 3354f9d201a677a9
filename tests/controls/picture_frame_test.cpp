#include "controls/picture_frame.h"

#include <gtest/gtest.h>

#include <QFile>

#include "sostegno/temporary_folder.h"

namespace {

QString salvata(const TemporaryFolder& cartella, QColor colore) {
  QPixmap tinta(40, 30);
  tinta.fill(colore);
  const QString file = cartella.file(QStringLiteral("figura.png"));
  EXPECT_TRUE(tinta.save(file));
  return file;
}

}  // namespace

TEST(Quadro, MostraLImmagineLetta) {
  const TemporaryFolder cartella;
  PictureFrame quadro;
  ASSERT_TRUE(quadro.load(salvata(cartella, Qt::blue)));
  quadro.resize(200, 400);
  EXPECT_EQ(quadro.grab().toImage().pixelColor(100, 200), QColor(Qt::blue));
  EXPECT_EQ(quadro.grab().toImage().pixelColor(100, 20), QColor(Qt::blue)) << "the edge goes on above it";
  quadro.resize(400, 100);
  EXPECT_EQ(quadro.grab().toImage().pixelColor(20, 50), QColor(Qt::blue)) << "and beside it";
}

TEST(Quadro, UnFileAssenteORottoLasciaQuellaDiPrima) {
  const TemporaryFolder cartella;
  PictureFrame quadro;
  ASSERT_TRUE(quadro.load(salvata(cartella, Qt::red)));
  EXPECT_FALSE(quadro.load(cartella.file(QStringLiteral("assente.png"))));
  EXPECT_FALSE(quadro.load(cartella.write(QStringLiteral("rotta.png"), "niente")));
  EXPECT_EQ(quadro.image().toImage().pixelColor(20, 15), QColor(Qt::red));
}
