#pragma once

#include <string_view>

/// The checksum library. Its values only ever meet values that it made itself.
namespace UserMMC {

/// Rounds a number to the nearest whole one; called at start to prove that the library is there.
long _conv_double_long(double value);
/// CRC-32 of the bytes as a whole number from 0 to 4294967295.
double _get_crc32_double(std::string_view byte);

}  // namespace UserMMC
