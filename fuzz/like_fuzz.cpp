// Patterns of the searches: the range that stands in front of a pattern must lose no row that the pattern
// takes.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/store/data_ora.h"
#include "platform/store/modello_like.h"
#include "platform/store/parole.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
  const std::string_view tutto(static_cast<const char*>(static_cast<const void*>(dati)), quanti);
  const std::size_t taglio = tutto.find('\n');
  const std::string_view modello = tutto.substr(0, taglio);
  const std::string_view testo =
      taglio == std::string_view::npos ? std::string_view() : tutto.substr(taglio + 1);
  const std::string_view prefisso = store::PrefissoFisso(modello);
  const bool preso = store::SomigliaAlModello(modello, testo);
  if (preso && !store::UgualiSenzaMaiuscole(testo.substr(0, prefisso.size()), prefisso)) std::abort();
  if (const auto momento = store::LeggiDataOra(testo)) {
    if (store::FormaOrdinabile(*store::LeggiDataOra(store::FormaItaliana(*momento))) !=
        store::FormaOrdinabile(*momento))
      std::abort();
  }
  return 0;
}
