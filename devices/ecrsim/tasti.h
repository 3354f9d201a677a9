#pragma once

#include <string>
#include <string_view>

#include "ecrsim/registratore.h"

namespace ecrsim {

/// The sequence that reads the state.
inline constexpr std::string_view kLetturaStato = "X89F";

/// What a key sequence does: a code, and what it prints to the line.
struct EsitoTasti {
  std::int16_t codice = 0;
  std::string testo;
};

/// The one sequence that this till obeys by now reads its state; any other printable text is taken as keys
/// pressed that print nothing to the line, and changes nothing. Control characters are refused. The sale
/// keys, reports and dumps of the language go here.
EsitoTasti premi(const Registratore& registratore, std::string_view sequenza);

}  // namespace ecrsim
