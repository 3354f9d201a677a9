#include "platform/ui/beat.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

TEST(Ritmo, BatteAllaPrimaChiamataEPoiUnaVoltaAlMillisecondo) {
  Beat ritmo;
  const Beat::Clock::time_point inizio{};
  EXPECT_TRUE(ritmo.due(inizio));
  EXPECT_FALSE(ritmo.due(inizio));
  EXPECT_FALSE(ritmo.due(inizio + 999us));
  EXPECT_TRUE(ritmo.due(inizio + 1ms));
  EXPECT_FALSE(ritmo.due(inizio + 1999us));
  EXPECT_TRUE(ritmo.due(inizio + 5ms));
}

}  // namespace
