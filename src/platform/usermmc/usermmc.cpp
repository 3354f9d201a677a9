#include "platform/usermmc/usermmc.h"

#include <zlib.h>

#include <cmath>

namespace UserMMC {

long _conv_double_long(double valore) { return std::lround(valore); }

double _get_crc32_double(std::string_view byte) {
  const uLong vuoto = crc32_z(0, nullptr, 0);
  return static_cast<double>(crc32_z(vuoto, reinterpret_cast<const Bytef*>(byte.data()), byte.size()));
}

}  // namespace UserMMC
