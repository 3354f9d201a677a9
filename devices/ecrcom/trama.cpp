#include "ecrcom/trama.h"

#include <zlib.h>

#include <algorithm>
#include <stdexcept>

#include "platform/ecrcom/ecrcom.h"

namespace ecrcom {
namespace {

constexpr std::array<std::uint8_t, 4> kSegno{'E', 'C', 'R', '1'};
constexpr std::size_t kPosTipo = 4;
constexpr std::size_t kPosModo = 5;
constexpr std::size_t kPosCodice = 6;
constexpr std::size_t kPosLunghezza = 8;
constexpr std::size_t kPosNome = 12;
constexpr std::size_t kPosControllo = 44;
static_assert(kPosControllo - kPosNome == kNomeMassimo + 1);
static_assert(kPosControllo + 4 == kByteIntestazione);

std::uint32_t leggi(Byte byte, std::size_t inizio, std::size_t quanti) {
  std::uint32_t valore = 0;
  for (std::size_t i = quanti; i > 0; --i) valore = valore << 8U | byte[inizio + i - 1];
  return valore;
}

void scrivi(std::span<std::uint8_t> byte, std::size_t inizio, std::size_t quanti, std::uint32_t valore) {
  for (std::size_t i = 0; i < quanti; ++i) byte[inizio + i] = static_cast<std::uint8_t>(valore >> 8U * i);
}

std::uint32_t somma(Byte testa) {
  return prosegui(static_cast<std::uint32_t>(crc32_z(0, nullptr, 0)), testa.first(kPosControllo));
}

bool tipoNoto(std::uint8_t tipo) {
  return tipo >= static_cast<std::uint8_t>(Tipo::Comando) &&
         tipo <= static_cast<std::uint8_t>(Tipo::RispostaTasti);
}

}  // namespace

std::size_t datiMassimi(const Intestazione& testa) {
  switch (testa.tipo) {
    case Tipo::Comando:
      return testa.modo == ECR_SEND_MODE ? kByteMassimi : 0;
    case Tipo::Risposta:
      return kByteMassimi;
    case Tipo::ApriTasti:
      return 0;
    case Tipo::Tasti:
    case Tipo::RispostaTasti:
      break;
  }
  return kTastiMassimi;
}

bool puoEssereTrama(Byte inizio) {
  const std::size_t quanti = std::min(inizio.size(), kSegno.size());
  return std::equal(inizio.begin(), inizio.begin() + static_cast<std::ptrdiff_t>(quanti), kSegno.begin());
}

std::optional<Intestazione> leggiIntestazione(const ByteIntestazione& byte) {
  if (!puoEssereTrama(byte) || !tipoNoto(byte[kPosTipo])) return std::nullopt;
  Intestazione testa;
  testa.tipo = static_cast<Tipo>(byte[kPosTipo]);
  testa.modo = byte[kPosModo];
  testa.codice = static_cast<std::int16_t>(leggi(byte, kPosCodice, 2));
  testa.lunghezza = leggi(byte, kPosLunghezza, 4);
  testa.controllo = leggi(byte, kPosControllo, 4);
  if (testa.lunghezza > datiMassimi(testa)) return std::nullopt;
  const auto inizio = byte.begin() + kPosNome;
  const auto fine = byte.begin() + kPosControllo;
  const auto nul = std::find(inizio, fine, std::uint8_t{0});
  if (std::any_of(nul, fine, [](std::uint8_t uno) { return uno != 0; }) || nul == fine) return std::nullopt;
  testa.nome.assign(inizio, nul);
  return testa;
}

std::uint32_t controlloTesta(const ByteIntestazione& byte) {
  return somma(byte);
}

std::uint32_t prosegui(std::uint32_t controllo, Byte dati) {
  return dati.empty() ? controllo : static_cast<std::uint32_t>(crc32_z(controllo, dati.data(), dati.size()));
}

void intesta(const Intestazione& intestazione, std::vector<std::uint8_t>& trama) {
  if (intestazione.nome.size() > kNomeMassimo) throw std::length_error("nome");
  if (trama.size() < kByteIntestazione) throw std::length_error("testa");
  const Byte dati = Byte(trama).subspan(kByteIntestazione);
  if (dati.size() > datiMassimi(intestazione)) throw std::length_error("dati");
  std::fill_n(trama.begin(), kByteIntestazione, std::uint8_t{0});
  std::copy(kSegno.begin(), kSegno.end(), trama.begin());
  trama[kPosTipo] = static_cast<std::uint8_t>(intestazione.tipo);
  trama[kPosModo] = intestazione.modo;
  scrivi(trama, kPosCodice, 2, static_cast<std::uint16_t>(intestazione.codice));
  scrivi(trama, kPosLunghezza, 4, static_cast<std::uint32_t>(dati.size()));
  std::copy(intestazione.nome.begin(), intestazione.nome.end(), trama.begin() + kPosNome);
  scrivi(trama, kPosControllo, 4, prosegui(somma(trama), dati));
}

std::vector<std::uint8_t> componi(const Intestazione& intestazione, Byte dati) {
  std::vector<std::uint8_t> trama(kByteIntestazione + dati.size());
  std::copy(dati.begin(), dati.end(), trama.begin() + kByteIntestazione);
  intesta(intestazione, trama);
  return trama;
}

std::optional<TramaLetta> leggiTrama(Byte byte) {
  if (byte.size() < kByteIntestazione) return std::nullopt;
  ByteIntestazione testa;
  std::copy_n(byte.begin(), kByteIntestazione, testa.begin());
  const std::optional<Intestazione> letta = leggiIntestazione(testa);
  if (!letta || byte.size() - kByteIntestazione < letta->lunghezza) return std::nullopt;
  const Byte dati = byte.subspan(kByteIntestazione, letta->lunghezza);
  if (prosegui(controlloTesta(testa), dati) != letta->controllo) return std::nullopt;
  return TramaLetta{{*letta, {dati.begin(), dati.end()}}, kByteIntestazione + dati.size()};
}

Byte byteDi(std::string_view testo) {
  return {reinterpret_cast<const std::uint8_t*>(testo.data()), testo.size()};
}

}  // namespace ecrcom
