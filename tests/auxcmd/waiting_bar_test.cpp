#include "auxcmd/waiting_bar.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

namespace {

/// The one beat of a bar.
const QTimer& battito(const BarraAttesa& barra) {
  const QList<QTimer*> tutti = barra.findChildren<QTimer*>();
  EXPECT_EQ(tutti.size(), 1);
  return *tutti.front();
}

}  // namespace

TEST(BarraDellAttesa, NonHaFine) {
  const BarraAttesa barra;
  EXPECT_EQ(barra.minimum(), barra.maximum());
}

// Eight times a second, where the toolkit's own bar would paint at each picture of the display.
TEST(BarraDellAttesa, SiMuoveAlSuoBattito) {
  BarraAttesa barra;
  barra.resize(300, 20);
  barra.show();
  EXPECT_TRUE(battito(barra).isActive());
  EXPECT_GE(battito(barra).interval(), 100);
  const QImage prima = barra.grab().toImage();
  EXPECT_TRUE(QTest::qWaitFor([&] { return barra.grab().toImage() != prima; }));
}

TEST(BarraDellAttesa, NascostaStaFerma) {
  BarraAttesa barra;
  barra.resize(300, 20);
  barra.show();
  ASSERT_TRUE(battito(barra).isActive());
  barra.hide();
  EXPECT_FALSE(battito(barra).isActive());
}
