#pragma once

#include <string>
#include <string_view>

#include "ecrsim/till.h"

namespace ecrsim {

/// The sequence that reads the state.
inline constexpr std::string_view kReadState = "X89F";

/// What a key sequence does: a code, and what it prints to the line.
struct KeyResult {
  std::int16_t code = 0;
  std::string text;
};

/// The one sequence that this till obeys by now reads its state; any other printable text is taken as keys
/// pressed that print nothing to the line, and changes nothing. Control characters are refused. The sale
/// keys, reports and dumps of the language go here.
KeyResult press(const Till& till, std::string_view sequence);

}  // namespace ecrsim
