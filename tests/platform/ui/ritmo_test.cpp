#include "platform/ui/ritmo.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

TEST(Ritmo, BatteAllaPrimaChiamataEPoiUnaVoltaAlMillisecondo) {
  Ritmo ritmo;
  const Ritmo::Orologio::time_point inizio{};
  EXPECT_TRUE(ritmo.tocca(inizio));
  EXPECT_FALSE(ritmo.tocca(inizio));
  EXPECT_FALSE(ritmo.tocca(inizio + 999us));
  EXPECT_TRUE(ritmo.tocca(inizio + 1ms));
  EXPECT_FALSE(ritmo.tocca(inizio + 1999us));
  EXPECT_TRUE(ritmo.tocca(inizio + 5ms));
}

}  // namespace
