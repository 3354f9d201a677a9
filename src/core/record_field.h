#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// A fixed-layout record described once, as data. The bytes are the record's only state: readers decode,
/// writers edit in place and touch no byte outside their field, so stale and reserved bytes survive.
/// All integers are little endian, two's complement.
namespace record {

enum class Tipo {
  Flag,          ///< one byte, 1 yes, 0 no
  Byte,          ///< one unsigned byte
  SenzaSegno16,  ///< unsigned 16-bit
  Intero32,      ///< signed 32-bit, usually hundredths
  SenzaSegno32,  ///< unsigned 32-bit in the till's date or time encoding
  CampoTesto,    ///< the text's bytes, one NUL, stale bytes behind it
  TestoPieno,    ///< the same, without the NUL where the text fills the field
  Riservato,     ///< carried through, never written
};

struct Campo {
  std::string_view nome;
  std::size_t inizio;
  std::size_t larghezza;
  Tipo tipo;
  /// Longest text in characters; 0 for other kinds.
  std::size_t limite = 0;
};

inline constexpr std::size_t kByteIntero = 4;
inline constexpr std::size_t kByteInteroCorto = 2;

/// In order, covering a record of `byte` bytes without a gap or an overlap, widths fitting their kinds. A
/// text's NUL stands inside its field, or in the reserve right behind it; a full text is as long as its
/// field.
constexpr bool coerente(std::span<const Campo> campi, std::size_t byte);

using Record = std::span<std::uint8_t>;
using RecordLetto = std::span<const std::uint8_t>;

/// The text up to its first NUL or the field's end.
QString leggiTesto(RecordLetto record, const Campo& campo);
/// Whether `leggiTesto` is empty, without the text.
bool senzaTesto(RecordLetto record, const Campo& campo);
/// Cuts to the limit, writes the bytes and, where the kind has it, one NUL; what lay behind stays.
void scriviTesto(Record record, const Campo& campo, const QString& testo);
/// As above from Windows-1252 bytes.
void scriviTesto(Record record, const Campo& campo, std::string_view byte);
bool leggiFlag(RecordLetto record, const Campo& campo);
void scriviFlag(Record record, const Campo& campo, bool valore);
std::uint8_t leggiByte(RecordLetto record, const Campo& campo);
void scriviByte(Record record, const Campo& campo, std::uint8_t valore);
std::uint16_t leggiSenzaSegno16(RecordLetto record, const Campo& campo);
void scriviSenzaSegno16(Record record, const Campo& campo, std::uint16_t valore);
std::int32_t leggiIntero(RecordLetto record, const Campo& campo);
void scriviIntero(Record record, const Campo& campo, std::int32_t valore);
std::uint32_t leggiSenzaSegno(RecordLetto record, const Campo& campo);
void scriviSenzaSegno(Record record, const Campo& campo, std::uint32_t valore);

constexpr bool coerente(std::span<const Campo> campi, std::size_t byte) {
  std::size_t prossimo = 0;
  std::size_t fineTesto = 0;
  for (const Campo& campo : campi) {
    if (campo.inizio != prossimo || campo.larghezza == 0) return false;
    if (campo.inizio < fineTesto && campo.tipo != Tipo::Riservato) return false;
    prossimo = campo.inizio + campo.larghezza;
    switch (campo.tipo) {
      case Tipo::Flag:
      case Tipo::Byte:
        if (campo.larghezza != 1) return false;
        break;
      case Tipo::SenzaSegno16:
        if (campo.larghezza != kByteInteroCorto) return false;
        break;
      case Tipo::Intero32:
      case Tipo::SenzaSegno32:
        if (campo.larghezza != kByteIntero) return false;
        break;
      case Tipo::CampoTesto:
        if (campo.limite == 0) return false;
        fineTesto = campo.inizio + campo.limite + 1;
        break;
      case Tipo::TestoPieno:
        if (campo.limite != campo.larghezza) return false;
        break;
      case Tipo::Riservato:
        break;
    }
  }
  return prossimo == byte && fineTesto <= byte;
}

}  // namespace record
