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
  /// Receipts with an invoice each, rung up behind them.
  int invoices = 0;
  std::uint32_t seed = 1;
  /// Close the fiscal day that was left open, before listening.
  bool closeDay = false;
  /// Show paper and display on the standard output.
  bool video = false;
  bool help = false;
};

/// Reads the arguments behind the program's name. Throws std::invalid_argument, its text for the person's
/// eyes, for an option unknown, without its value, or with a value that is none.
Request readCommandLine(std::span<const char* const> arguments);
/// MODE[:FILE]:WHAT, WHAT being codice[=N], silenzio, taglio-prima, taglio-dentro, taglio-dopo, corto, lungo
/// or spazzatura. The mode "tasti" stands for key sequences, with "stato" or "dump" for the file, and with
/// rumore, taglio-testa and taglio-marcatore besides. Throws std::invalid_argument.
Fault readFault(const std::string& text);
/// The options, for --help. Italian.
const char* helpText();

}  // namespace ecrsim
