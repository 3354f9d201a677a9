#include <gtest/gtest.h>

// RiempiPrezzi is named here in a remark alone.
TEST(Totali, SiSommano) {
  EXPECT_EQ(1 + 1, 2);
}
