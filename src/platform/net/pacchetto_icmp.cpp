#include "platform/net/pacchetto_icmp.h"

#include <algorithm>

namespace icmp {

namespace {

constexpr std::uint8_t kTipoRisposta = 0;
constexpr std::uint8_t kTipoRichiesta = 8;
constexpr std::size_t kIntestazione = 8;
constexpr std::size_t kPostoSomma = 2;
constexpr std::size_t kPostoIdentificatore = 4;
constexpr std::size_t kPostoSequenza = 6;

constexpr std::size_t kIntestazioneIp = 20;
constexpr std::size_t kPostoProtocolloIp = 9;
constexpr std::uint8_t kProtocolloIcmp = 1;
constexpr unsigned kVersione4 = 4;
constexpr std::size_t kByteParola = 4;

std::uint16_t parola(std::span<const std::uint8_t> byte, std::size_t posto) {
  return static_cast<std::uint16_t>(byte[posto] << 8 | byte[posto + 1]);
}

void scrivi(QByteArray& byte, std::size_t posto, std::uint16_t valore) {
  byte[static_cast<qsizetype>(posto)] = static_cast<char>(valore >> 8);
  byte[static_cast<qsizetype>(posto + 1)] = static_cast<char>(valore & 0xFF);
}

/// The internet checksum: one's complement of the one's complement sum of the 16-bit words.
std::uint16_t somma(const QByteArray& byte) {
  std::uint32_t totale = 0;
  for (qsizetype i = 0; i < byte.size(); ++i) {
    const auto valore = static_cast<std::uint8_t>(byte[i]);
    totale += i % 2 == 0 ? static_cast<std::uint32_t>(valore) << 8 : valore;
  }
  while (totale >> 16) totale = (totale & 0xFFFF) + (totale >> 16);
  return static_cast<std::uint16_t>(~totale);
}

}  // namespace

QByteArray richiestaEco(std::uint16_t identificatore, std::uint16_t sequenza, const QByteArray& dati) {
  QByteArray messaggio(kIntestazione, '\0');
  messaggio[0] = static_cast<char>(kTipoRichiesta);
  scrivi(messaggio, kPostoIdentificatore, identificatore);
  scrivi(messaggio, kPostoSequenza, sequenza);
  messaggio += dati;
  scrivi(messaggio, kPostoSomma, somma(messaggio));
  return messaggio;
}

std::span<const std::uint8_t> messaggioDi(std::span<const std::uint8_t> pacchettoIp) {
  if (pacchettoIp.size() < kIntestazioneIp) return {};
  const std::size_t intestazione = (pacchettoIp[0] & 0x0Fu) * kByteParola;
  const bool nostro = pacchettoIp[0] >> 4 == kVersione4 && pacchettoIp[kPostoProtocolloIp] == kProtocolloIcmp;
  if (!nostro || intestazione < kIntestazioneIp || intestazione > pacchettoIp.size()) return {};
  return pacchettoIp.subspan(intestazione);
}

bool risponde(std::span<const std::uint8_t> messaggio, std::optional<std::uint16_t> identificatore,
              std::uint16_t sequenza, const QByteArray& dati) {
  if (messaggio.size() < kIntestazione || messaggio[0] != kTipoRisposta || messaggio[1] != 0) return false;
  if (identificatore && parola(messaggio, kPostoIdentificatore) != *identificatore) return false;
  if (parola(messaggio, kPostoSequenza) != sequenza) return false;
  return std::ranges::equal(messaggio.subspan(kIntestazione), dati, {}, {},
                            [](char c) { return static_cast<std::uint8_t>(c); });
}

}  // namespace icmp
