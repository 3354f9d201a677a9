#include "platform/usermmc/usermmc.h"

#include <gtest/gtest.h>

#include <string_view>

TEST(UserMMC, ILongSonoArrotondatiAlPiuVicino) {
  EXPECT_EQ(UserMMC::_conv_double_long(123.0), 123);
  EXPECT_EQ(UserMMC::_conv_double_long(122.5), 123);
  EXPECT_EQ(UserMMC::_conv_double_long(-0.4), 0);
}

TEST(UserMMC, LaSommaEIlCrc32SenzaSegno) {
  // The check value of the method, above the largest signed number.
  EXPECT_EQ(UserMMC::_get_crc32_double("123456789"), 3421780262.0);
  EXPECT_EQ(UserMMC::_get_crc32_double(""), 0.0);
  EXPECT_EQ(UserMMC::_get_crc32_double(std::string_view("\0", 1)), 3523407757.0);
}
