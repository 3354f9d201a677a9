#include "config/image.h"

#include "config/general_options.h"
#include "config/records.h"
#include "platform/error.h"

namespace config {

namespace {

constexpr std::size_t dopo(const Famiglia& precedente) {
  return precedente.inizio + precedente.totale();
}

[[noreturn]] void fuoriIntervallo() {
  throw errors::outOfRange();
}

std::size_t inizioDi(const Famiglia& famiglia, std::size_t indice) {
  if (indice >= famiglia.record) fuoriIntervallo();
  return famiglia.inizio + indice * famiglia.byte;
}

}  // namespace

constexpr Famiglia kIntestazione{
    "intestazione", "intestazione.bin", intestazione::kRecord, intestazione::kByte, 0, intestazione::kCampi};
constexpr Famiglia kCortesia{"cortesia",      "cortesia.bin",      cortesia::kRecord,
                             cortesia::kByte, dopo(kIntestazione), cortesia::kCampi};
constexpr Famiglia kReparto{"reparti",      "reparti.bin",   reparto::kRecord,
                            reparto::kByte, dopo(kCortesia), reparto::kCampi};
constexpr Famiglia kPLU{"plu", "plu.bin", kNumeroPLU, kBytePLU, dopo(kReparto), plu::kCampi};
constexpr Famiglia kIVA{"iva", "iva.bin", iva::kRecord, iva::kByte, dopo(kPLU), iva::kCampi};
constexpr Famiglia kValuta{"val", "val.bin", valuta::kRecord, valuta::kByte, dopo(kIVA), valuta::kCampi};
constexpr Famiglia kOperatore{"operatori",      "operatori.bin", operatore::kRecord,
                              operatore::kByte, dopo(kValuta),   operatore::kCampi};
constexpr Famiglia kParametri{"prog_param",     "prog_param.bin", 1,
                              parametri::kByte, dopo(kOperatore), parametri::kCampi};
constexpr Famiglia kLogo{"logo", "logo.bin", logo::kRecord, logo::kByte, dopo(kParametri), logo::kCampi};

static_assert(kPLU.totale() == kByteArchivioPLU);
static_assert(dopo(kLogo) == kByteImmagine);

std::span<const Famiglia* const> famiglie() {
  static constexpr std::array<const Famiglia*, 9> kTutte{
      &kIntestazione, &kCortesia, &kReparto, &kPLU, &kIVA, &kValuta, &kOperatore, &kParametri, &kLogo};
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
