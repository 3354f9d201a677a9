#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "ecrsim/simulator.h"

namespace ecrsim {

/// What the program `ecrsim` was asked for.
struct Request {
  Options options;
  /// Link to make to a pseudo-terminal; empty: no serial line.
  std::string serial;
  /// Receipts to ring up before listening.
  int salesDay = 0;
  std::uint32_t seed = 1;
  bool help = false;
};

/// Reads the arguments behind the program's name. Throws std::invalid_argument, its text for the person's
/// eyes, for an option unknown, without its value, or with a value that is none.
Request readCommandLine(std::span<const char* const> arguments);
/// MODE[:FILE]:WHAT, WHAT being codice[=N], silenzio, taglio-prima, taglio-dentro, taglio-dopo, corto, lungo
/// or spazzatura. Throws std::invalid_argument.
Fault readFault(const std::string& text);
/// The options, for --help. Italian.
const char* helpText();

}  // namespace ecrsim
