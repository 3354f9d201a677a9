#include "auxcmd/waiting_bar.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QEvent>
#include <QTest>

namespace {

class Barra : public BarraAttesa {
 public:
  int dipinta = 0;

 protected:
  bool event(QEvent* event) override {
    dipinta += event->type() == QEvent::Paint ? 1 : 0;
    return BarraAttesa::event(event);
  }
};

}  // namespace

TEST(BarraDellAttesa, NonHaFine) {
  const BarraAttesa barra;
  EXPECT_EQ(barra.minimum(), barra.maximum());
}

TEST(BarraDellAttesa, SiMuoveMaNonPiuSpessoDelSuoBattito) {
  Barra barra;
  barra.resize(300, 20);
  barra.show();
  QCoreApplication::processEvents();
  const QImage prima = barra.grab().toImage();
  barra.dipinta = 0;
  QElapsedTimer cronometro;
  cronometro.start();
  EXPECT_TRUE(QTest::qWaitFor([&] { return barra.dipinta >= 3; }));
  EXPECT_LE(barra.dipinta, 1 + cronometro.elapsed() / 120);
  EXPECT_NE(barra.grab().toImage(), prima);
}

TEST(BarraDellAttesa, NascostaStaFerma) {
  Barra barra;
  barra.resize(300, 20);
  barra.show();
  barra.hide();
  for (const QTimer* uno : barra.findChildren<QTimer*>()) EXPECT_FALSE(uno->isActive());
  const QImage prima = barra.grab().toImage();
  EXPECT_FALSE(QTest::qWaitFor([&] { return barra.grab().toImage() != prima; }, 300));
}
