#include "platform/usermmc/usermmc.h"

#include <zlib.h>

#include <cmath>

namespace UserMMC {

long _conv_double_long(double value) {
  return std::lround(value);
}

double _get_crc32_double(std::string_view byte) {
  const uLong empty = crc32_z(0, nullptr, 0);
  return static_cast<double>(crc32_z(empty, reinterpret_cast<const Bytef*>(byte.data()), byte.size()));
}

}  // namespace UserMMC
