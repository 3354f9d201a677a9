#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "config/general_options.h"
#include "config/records.h"
#include "ecrlink/models.h"

/// The till's whole programme in memory: nine families of records in a fixed order.
namespace config {

using ecrlink::kNumeroPLU;
inline constexpr std::size_t kBytePLU = 48;

/// Fields of RecordPLU.
namespace plu {
inline constexpr Campo kDescrizione{"descrizione", 0, 25, Tipo::CampoTesto, 24};
inline constexpr Campo kReparto{"reparto", 25, 1, Tipo::Byte};
inline constexpr Campo kAttributi{"attributi", 26, 1, Tipo::Byte};
inline constexpr Campo kPrezzo{"prezzo", 27, 4, Tipo::Intero32};
inline constexpr Campo kCodiceEAN{"codice EAN", 31, 14, Tipo::CampoTesto, 14};
inline constexpr Campo kRiserva{"riserva", 45, 3, Tipo::Riservato};
inline constexpr std::array kCampi{kDescrizione, kReparto, kAttributi, kPrezzo, kCodiceEAN, kRiserva};
static_assert(coerente(kCampi, kBytePLU));
/// Bits of the attributes.
inline constexpr std::uint8_t kVarPrezzo = 1;
inline constexpr std::uint8_t kPrezzoZero = 2;
}  // namespace plu
using RecordPLU = std::array<std::uint8_t, kBytePLU>;

struct Famiglia {
  const char* nome;
  const char* file;
  std::size_t record;
  std::size_t byte;
  std::size_t inizio;
  std::span<const Campo> campi;

  constexpr std::size_t totale() const { return record * byte; }
  /// Where the next one begins.
  constexpr std::size_t fine() const { return inizio + totale(); }
};

inline constexpr Famiglia kIntestazione{
    "intestazione", "intestazione.bin", intestazione::kRecord, intestazione::kByte, 0, intestazione::kCampi};
inline constexpr Famiglia kCortesia{"cortesia",      "cortesia.bin",       cortesia::kRecord,
                                    cortesia::kByte, kIntestazione.fine(), cortesia::kCampi};
inline constexpr Famiglia kReparto{"reparti",      "reparti.bin",    reparto::kRecord,
                                   reparto::kByte, kCortesia.fine(), reparto::kCampi};
inline constexpr Famiglia kPLU{"plu", "plu.bin", kNumeroPLU, kBytePLU, kReparto.fine(), plu::kCampi};
inline constexpr Famiglia kIVA{"iva", "iva.bin", iva::kRecord, iva::kByte, kPLU.fine(), iva::kCampi};
inline constexpr Famiglia kValuta{"val",         "val.bin",   valuta::kRecord,
                                  valuta::kByte, kIVA.fine(), valuta::kCampi};
inline constexpr Famiglia kOperatore{"operatori",      "operatori.bin", operatore::kRecord,
                                     operatore::kByte, kValuta.fine(),  operatore::kCampi};
inline constexpr Famiglia kParametri{"prog_param",     "prog_param.bin",  1,
                                     parametri::kByte, kOperatore.fine(), parametri::kCampi};
inline constexpr Famiglia kLogo{"logo",      "logo.bin",        logo::kRecord,
                                logo::kByte, kParametri.fine(), logo::kCampi};
/// The nine in the order of the image.
std::span<const Famiglia* const> famiglie();

inline constexpr std::size_t kByteArchivioPLU = kPLU.totale();
inline constexpr std::size_t kByteImmagine = kLogo.fine();

class ImmagineProgrammazione {
 public:
  /// Record `indice`, from 0, of a family. Throws Errore 9 outside it.
  Record record(const Famiglia& famiglia, std::size_t indice);
  RecordLetto record(const Famiglia& famiglia, std::size_t indice) const;
  /// All bytes of a family.
  Record blocco(const Famiglia& famiglia);
  RecordLetto blocco(const Famiglia& famiglia) const;
  Record byte() { return byte_; }
  RecordLetto byte() const { return byte_; }

 private:
  std::array<std::uint8_t, kByteImmagine> byte_{};
};

/// The one instance of the process, all zero at start.
ImmagineProgrammazione& immagineProgrammazione();

}  // namespace config
