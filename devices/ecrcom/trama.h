#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// One frame of the till's protocol: a header of fixed length, then as many data bytes as it announces.
/// docs/ecr-protocol.md lays it out; integers are little endian.
namespace ecrcom {

/// The one TCP port tills listen on.
inline constexpr std::uint16_t kPorta = 17471;

enum class Tipo : std::uint8_t {
  Comando = 1,        ///< to the till: a mode, in modes 6 and 7 a file name, in mode 6 the file
  Risposta = 2,       ///< to the PC: the code, and in modes 0 and 7 what was asked for
  ApriTasti = 3,      ///< to the till: key sequences follow on this connection
  Tasti = 4,          ///< to the till: one key sequence
  RispostaTasti = 5,  ///< to the PC: a block of what a key sequence prints to the line
};

inline constexpr std::size_t kByteIntestazione = 48;
/// The longest file a frame carries; the largest that tills know is plu.bin with 240000 bytes.
inline constexpr std::size_t kByteMassimi = std::size_t{4} * 1024 * 1024;
/// The longest file name; its field of 32 bytes always ends in a NUL.
inline constexpr std::size_t kNomeMassimo = 31;
/// The longest key sequence and the longest block that answers one.
inline constexpr std::size_t kTastiMassimi = 1024;

struct Intestazione {
  Tipo tipo = Tipo::Comando;
  std::uint8_t modo = 0;
  std::int16_t codice = 0;
  std::string nome;
  std::uint32_t lunghezza = 0;
  std::uint32_t controllo = 0;
};

struct Trama {
  Intestazione intestazione;
  std::vector<std::uint8_t> dati;
};

using ByteIntestazione = std::array<std::uint8_t, kByteIntestazione>;
using Byte = std::span<const std::uint8_t>;

/// How many data bytes a frame of that kind and mode carries at most: of what goes to the till only a file
/// that is sent may be long.
std::size_t datiMassimi(const Intestazione& testa);
/// Whether these first bytes can still become a header; true for none at all.
bool puoEssereTrama(Byte inizio);
/// Nothing if the bytes are no header: wrong mark, kind unknown, name without its NUL, data beyond bounds.
std::optional<Intestazione> leggiIntestazione(const ByteIntestazione& byte);
/// Checksum of a header as far as it counts, and of the data behind what has been summed up so far. The sum
/// of both is what the header tells.
std::uint32_t controlloTesta(const ByteIntestazione& byte);
std::uint32_t prosegui(std::uint32_t controllo, Byte dati);
/// Writes the header into the first kByteIntestazione bytes of a run whose rest are the data already. Bounds
/// as for componi(), std::length_error also for a run too short.
void intesta(const Intestazione& intestazione, std::vector<std::uint8_t>& trama);
/// Header and data as one run of bytes. `nome` has at most kNomeMassimo characters, `dati` as many bytes as
/// frames of the kind and mode carry; throws std::length_error beyond.
std::vector<std::uint8_t> componi(const Intestazione& intestazione, Byte dati);
/// The frame at the beginning of `byte` and its length; nothing if it is not there whole, or is none.
struct TramaLetta {
  Trama trama;
  std::size_t lunghezza = 0;
};
std::optional<TramaLetta> leggiTrama(Byte byte);

/// The bytes of a text, for componi().
Byte byteDi(std::string_view testo);

}  // namespace ecrcom
