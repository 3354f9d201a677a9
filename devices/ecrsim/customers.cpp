#include "ecrsim/customers.h"

#include <algorithm>

#include "ecrcom/codes.h"
#include "ecrsim/known_files.h"

namespace ecrsim {
namespace {

constexpr std::size_t kRecordBytes = kCustomersBytes / Customers::kCodes;
static_assert(kRecordBytes * Customers::kCodes == kCustomersBytes);
/// Behind the state flag.
constexpr std::ptrdiff_t kName = 1;
constexpr std::ptrdiff_t kNameWidth = 41;

std::size_t startOf(int code) {
  return static_cast<std::size_t>(code - 1) * kRecordBytes;
}

}  // namespace

Customers::Customers(const Memory& memory) {
  if (memory.read(kCustomersFile, byte_) != ecrcom::kDone) byte_.clear();
}

bool Customers::known(int code) const {
  if (code < 1 || code > kCodes || startOf(code) + kRecordBytes > byte_.size()) return false;
  return byte_[startOf(code)] != 0;
}

std::string Customers::name(int code) const {
  if (!known(code)) return {};
  const auto begin = byte_.begin() + static_cast<std::ptrdiff_t>(startOf(code)) + kName;
  return {begin, std::find(begin, begin + kNameWidth, std::uint8_t{0})};
}

}  // namespace ecrsim
