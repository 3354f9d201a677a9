#include "ecrsim/tasti.h"

#include <algorithm>

#include "ecrcom/codici.h"

namespace ecrsim {
namespace {

constexpr unsigned char kPrimoStampabile = 0x20;

bool stampabile(char carattere) {
  return static_cast<unsigned char>(carattere) >= kPrimoStampabile;
}

}  // namespace

EsitoTasti premi(const Registratore& registratore, std::string_view sequenza) {
  if (!std::all_of(sequenza.begin(), sequenza.end(), stampabile)) return {ecrcom::kTestoErrato, {}};
  if (sequenza == kLetturaStato) return {ecrcom::kFatto, registratore.recordStato()};
  return {};
}

}  // namespace ecrsim
