#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "config/field.h"

/// The till's whole programme in memory: nine families of records in a fixed order.
namespace config {

struct Famiglia {
  const char* nome;
  const char* file;
  std::size_t record;
  std::size_t byte;
  std::size_t inizio;
  std::span<const Campo> campi;

  constexpr std::size_t totale() const { return record * byte; }
};

extern const Famiglia kIntestazione;
extern const Famiglia kCortesia;
extern const Famiglia kReparto;
extern const Famiglia kPLU;
extern const Famiglia kIVA;
extern const Famiglia kValuta;
extern const Famiglia kOperatore;
extern const Famiglia kParametri;
extern const Famiglia kLogo;
/// The nine in the order of the image.
std::span<const Famiglia* const> famiglie();

inline constexpr std::size_t kByteImmagine = 244968;
inline constexpr int kNumeroPLU = 5000;
inline constexpr std::size_t kBytePLU = 48;
inline constexpr std::size_t kByteArchivioPLU = 240000;

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

}  // namespace config
