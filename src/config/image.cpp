#include "config/image.h"

#include "ecrlink/file_channel.h"
#include "platform/error.h"

namespace config {

namespace {

std::size_t inizioDi(const Famiglia& famiglia, std::size_t indice) {
  if (indice >= famiglia.record) throw errors::outOfRange();
  return famiglia.inizio + indice * famiglia.byte;
}

// The one file that the channel cuts to size.
static_assert(std::string_view(kPLU.file) == ecrlink::kFilePLU);

}  // namespace

std::span<const Famiglia* const> famiglie() {
  static constexpr std::array kTutte{&kIntestazione, &kCortesia,  &kReparto,   &kPLU, &kIVA,
                                     &kValuta,       &kOperatore, &kParametri, &kLogo};
  static_assert(kTutte.back()->fine() == kByteImmagine);
  return kTutte;
}

Record ImmagineProgrammazione::record(const Famiglia& famiglia, std::size_t indice) {
  return byte().subspan(inizioDi(famiglia, indice), famiglia.byte);
}

RecordLetto ImmagineProgrammazione::record(const Famiglia& famiglia, std::size_t indice) const {
  return byte().subspan(inizioDi(famiglia, indice), famiglia.byte);
}

Record ImmagineProgrammazione::blocco(const Famiglia& famiglia) {
  return byte().subspan(famiglia.inizio, famiglia.totale());
}

RecordLetto ImmagineProgrammazione::blocco(const Famiglia& famiglia) const {
  return byte().subspan(famiglia.inizio, famiglia.totale());
}

ImmagineProgrammazione& immagineProgrammazione() {
  static ImmagineProgrammazione unica;
  return unica;
}

}  // namespace config
