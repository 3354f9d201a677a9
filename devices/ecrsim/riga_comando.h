#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "ecrsim/simulatore.h"

namespace ecrsim {

/// What the program `ecrsim` was asked for.
struct Richiesta {
  Opzioni opzioni;
  /// Link to make to a pseudo-terminal; empty: no serial line.
  std::string seriale;
  /// Receipts to ring up before listening.
  int giornata = 0;
  std::uint32_t seme = 1;
  bool aiuto = false;
};

/// Reads the arguments behind the program's name. Throws std::invalid_argument, its text for the person's
/// eyes, for an option unknown, without its value, or with a value that is none.
Richiesta leggiRigaComando(std::span<const char* const> argomenti);
/// MODE[:FILE]:WHAT, WHAT being codice[=N], silenzio, taglio-prima, taglio-dentro, taglio-dopo, corto, lungo
/// or spazzatura. Throws std::invalid_argument.
Guasto leggiGuasto(const std::string& testo);
/// The options, for --help. Italian.
const char* testoAiuto();

}  // namespace ecrsim
