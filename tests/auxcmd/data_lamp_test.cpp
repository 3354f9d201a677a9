#include "auxcmd/data_lamp.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QTest>

namespace {

class Spia : public SpiaDati {
 public:
  int dipinta = 0;

 protected:
  bool event(QEvent* event) override {
    dipinta += event->type() == QEvent::Paint ? 1 : 0;
    return SpiaDati::event(event);
  }
};

QColor nelMezzo(SpiaDati& spia) {
  return spia.grab().toImage().pixelColor(spia.width() / 2, spia.height() / 2);
}

}  // namespace

TEST(SpiaDeiDati, HaIlColoreCheSiAccende) {
  SpiaDati spia;
  spia.resize(16, 16);
  spia.accendi(QColor(0, 255, 0));
  EXPECT_EQ(spia.colore(), QColor(0, 255, 0));
  EXPECT_EQ(nelMezzo(spia), QColor(0, 255, 0));
  spia.accendi(QColor(0x40, 0x40, 0x40));
  EXPECT_EQ(nelMezzo(spia), QColor(0x40, 0x40, 0x40));
}

TEST(SpiaDeiDati, CambiataAOgniCarattereSiDipingeAlBattitoDellOcchio) {
  Spia spia;
  spia.resize(16, 16);
  spia.show();
  QCoreApplication::processEvents();
  spia.dipinta = 0;
  QElapsedTimer cronometro;
  cronometro.start();
  for (int i = 0; i < 2000; ++i) {
    spia.accendi(i % 2 == 0 ? Qt::green : Qt::lightGray);
    QCoreApplication::processEvents();
  }
  EXPECT_LE(spia.dipinta, 1 + cronometro.elapsed() / 80);
  spia.accendi(Qt::darkGray);
  const int prima = spia.dipinta;
  EXPECT_TRUE(QTest::qWaitFor([&] { return spia.dipinta > prima; })) << "the last colour is seen";
}
