#include "core/record_field.h"

#include <algorithm>

#include "core/conversions.h"
#include "platform/error.h"
#include "platform/text/windows1252.h"

namespace record {

namespace {

constexpr unsigned kBitPerByte = 8;

void esigi(std::size_t disponibili, std::size_t richiesti) {
  if (disponibili < richiesti) throw errors::outOfRange();
}

template <typename Byte>
std::span<Byte> zona(std::span<Byte> record, const Campo& campo, std::size_t larghezza) {
  esigi(record.size(), campo.inizio + larghezza);
  return record.subspan(campo.inizio, larghezza);
}

std::uint32_t decodifica(RecordLetto byte) {
  std::uint32_t valore = 0;
  for (std::size_t i = byte.size(); i-- > 0;) valore = (valore << kBitPerByte) | byte[i];
  return valore;
}

void codifica(Record byte, std::uint32_t valore) {
  for (std::uint8_t& uno : byte) {
    uno = static_cast<std::uint8_t>(valore);
    valore >>= kBitPerByte;
  }
}

}  // namespace

QString leggiTesto(RecordLetto record, const Campo& campo) {
  return ByteInTesto(zona(record, campo, campo.larghezza));
}

bool senzaTesto(RecordLetto record, const Campo& campo) {
  return zona(record, campo, campo.larghezza).front() == 0;
}

void scriviTesto(Record record, const Campo& campo, const QString& testo) {
  const QByteArray byte = windows1252::toBytes(testo);
  scriviTesto(record, campo, std::string_view(byte.constData(), static_cast<std::size_t>(byte.size())));
}

void scriviTesto(Record record, const Campo& campo, std::string_view byte) {
  const std::string_view tagliato = byte.substr(0, campo.limite);
  if (campo.tipo == Tipo::TestoPieno && tagliato.size() == campo.larghezza) {
    std::ranges::copy(tagliato, zona(record, campo, campo.larghezza).begin());
    return;
  }
  // A text as long as its field puts its NUL into the reserve behind it: the till expects it there.
  const Record destinazione = zona(record, campo, std::max(campo.larghezza, tagliato.size() + 1));
  std::ranges::copy(tagliato, destinazione.begin());
  destinazione[tagliato.size()] = 0;
}

bool leggiFlag(RecordLetto record, const Campo& campo) {
  return leggiByte(record, campo) != 0;
}

void scriviFlag(Record record, const Campo& campo, bool valore) {
  scriviByte(record, campo, valore ? std::uint8_t{1} : std::uint8_t{0});
}

std::uint8_t leggiByte(RecordLetto record, const Campo& campo) {
  return zona(record, campo, 1).front();
}

void scriviByte(Record record, const Campo& campo, std::uint8_t valore) {
  zona(record, campo, 1).front() = valore;
}

std::int32_t leggiIntero(RecordLetto record, const Campo& campo) {
  return static_cast<std::int32_t>(leggiSenzaSegno(record, campo));
}

void scriviIntero(Record record, const Campo& campo, std::int32_t valore) {
  scriviSenzaSegno(record, campo, static_cast<std::uint32_t>(valore));
}

std::uint32_t leggiSenzaSegno(RecordLetto record, const Campo& campo) {
  return decodifica(zona(record, campo, kByteIntero));
}

void scriviSenzaSegno(Record record, const Campo& campo, std::uint32_t valore) {
  codifica(zona(record, campo, kByteIntero), valore);
}

std::uint16_t leggiSenzaSegno16(RecordLetto record, const Campo& campo) {
  return static_cast<std::uint16_t>(decodifica(zona(record, campo, kByteInteroCorto)));
}

void scriviSenzaSegno16(Record record, const Campo& campo, std::uint16_t valore) {
  codifica(zona(record, campo, kByteInteroCorto), valore);
}

}  // namespace record
