#include "ecrsim/keys.h"

#include <algorithm>

#include "ecrcom/codes.h"

namespace ecrsim {
namespace {

constexpr unsigned char kFirstPrintable = 0x20;

bool printable(char character) {
  return static_cast<unsigned char>(character) >= kFirstPrintable;
}

}  // namespace

KeyResult press(const Till& till, std::string_view sequence) {
  if (!std::all_of(sequence.begin(), sequence.end(), printable)) return {ecrcom::kBadText, {}};
  if (sequence == kReadState) return {ecrcom::kDone, till.stateRecord()};
  return {};
}

}  // namespace ecrsim
