#include "controls/picture_frame.h"

#include <gtest/gtest.h>

#include <QFile>

#include "sostegno/temporary_folder.h"

namespace {

QString salvata(const TemporaryFolder& cartella, QColor colore) {
  QPixmap tinta(40, 30);
  tinta.fill(colore);
  QString file = cartella.file(QStringLiteral("figura.png"));
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

TEST(Quadro, SuUnoSchermoAlDoppioDellaScalaMostraOgniPuntoDellImmagine) {
  QImage righe(400, 300, QImage::Format_RGB32);
  for (int y = 0; y < 300; ++y)
    for (int x = 0; x < 400; ++x) righe.setPixelColor(x, y, x % 2 == 0 ? Qt::black : Qt::white);
  PictureFrame quadro;
  quadro.setImage(QPixmap::fromImage(righe));
  quadro.resize(200, 150);
  QPixmap schermo(400, 300);
  schermo.setDevicePixelRatio(2);
  quadro.render(&schermo);
  const QImage visto = schermo.toImage();
  for (int x = 100; x < 300; ++x) EXPECT_EQ(visto.pixelColor(x, 150), righe.pixelColor(x, 150)) << x;
}

TEST(Quadro, RimpicciolitaNonPerdeLeRigheSottili) {
  QImage righe(800, 600, QImage::Format_RGB32);
  for (int y = 0; y < 600; ++y)
    for (int x = 0; x < 800; ++x) righe.setPixelColor(x, y, x % 4 == 0 ? Qt::black : Qt::white);
  PictureFrame quadro;
  quadro.setImage(QPixmap::fromImage(righe));
  quadro.resize(200, 150);
  const QImage visto = quadro.grab().toImage();
  for (int x = 50; x < 150; ++x) {
    EXPECT_GT(visto.pixelColor(x, 75).lightness(), 160) << "three parts of white in four, " << x;
    EXPECT_LT(visto.pixelColor(x, 75).lightness(), 230) << "and one of black, " << x;
  }
}
