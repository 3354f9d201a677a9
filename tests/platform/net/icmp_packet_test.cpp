#include "platform/net/icmp_packet.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

using Byte = std::vector<std::uint8_t>;
const QByteArray kDati("hello");
constexpr std::uint16_t kIo = 0x1234;

Byte inVettore(const QByteArray& byte) {
  return {byte.begin(), byte.end()};
}

Byte risposta() {
  Byte messaggio = inVettore(icmp::echoRequest(kIo, 1, kDati));
  messaggio[0] = 0;
  return messaggio;
}

Byte inIp(const Byte& messaggio, std::uint8_t parole = 5) {
  Byte pacchetto(parole * 4u, 0);
  pacchetto[0] = static_cast<std::uint8_t>(0x40 | parole);
  pacchetto[9] = 1;
  pacchetto.insert(pacchetto.end(), messaggio.begin(), messaggio.end());
  return pacchetto;
}

}  // namespace

TEST(PacchettoIcmp, LaRichiestaHaTipoOttoESommaGiusta) {
  EXPECT_EQ(icmp::echoRequest(kIo, 1, kDati).toHex(), "0800a1f81234000168656c6c6f");
}

TEST(PacchettoIcmp, LaRispostaConGliStessiValoriEAccettata) {
  EXPECT_TRUE(icmp::answers(risposta(), kIo, 1, kDati));
  EXPECT_TRUE(icmp::answers(risposta(), std::nullopt, 1, kDati));
}

TEST(PacchettoIcmp, LaPropriaRichiestaUditaSulLoopbackNonEUnaRisposta) {
  EXPECT_FALSE(icmp::answers(inVettore(icmp::echoRequest(kIo, 1, kDati)), kIo, 1, kDati));
}

TEST(PacchettoIcmp, LaRispostaAdAltriNonEAccettata) {
  EXPECT_FALSE(icmp::answers(risposta(), kIo + 1, 1, kDati));
  EXPECT_FALSE(icmp::answers(risposta(), kIo, 2, kDati));
  EXPECT_FALSE(icmp::answers(risposta(), kIo, 1, "hellp"));
  EXPECT_FALSE(icmp::answers(risposta(), kIo, 1, "hell"));
  EXPECT_FALSE(icmp::answers(risposta(), kIo, 1, "hello "));
}

TEST(PacchettoIcmp, OgniRispostaTroncataERifiutata) {
  const Byte intera = risposta();
  for (std::size_t byte = 0; byte < intera.size(); ++byte)
    EXPECT_FALSE(icmp::answers(std::span(intera).first(byte), kIo, 1, kDati)) << byte;
}

TEST(PacchettoIcmp, IlMessaggioSegueLIntestazioneAncheConOpzioni) {
  for (const std::uint8_t parole : std::initializer_list<std::uint8_t>{5, 6, 15}) {
    const Byte pacchetto = inIp(risposta(), parole);
    EXPECT_TRUE(icmp::answers(icmp::messageOf(pacchetto), kIo, 1, kDati)) << int{parole};
  }
}

TEST(PacchettoIcmp, UnIntestazioneFalsaNonDaMessaggio) {
  Byte versione = inIp(risposta());
  versione[0] = 0x65;
  EXPECT_TRUE(icmp::messageOf(versione).empty());
  Byte protocollo = inIp(risposta());
  protocollo[9] = 17;
  EXPECT_TRUE(icmp::messageOf(protocollo).empty());
  Byte corta = inIp(risposta());
  corta[0] = 0x44;
  EXPECT_TRUE(icmp::messageOf(corta).empty());
  Byte lunga = inIp(risposta());
  lunga[0] = 0x4F;
  EXPECT_TRUE(icmp::messageOf(lunga).empty());
}

TEST(PacchettoIcmp, OgniPacchettoTroncatoERifiutato) {
  const Byte intero = inIp(risposta());
  for (std::size_t byte = 0; byte < intero.size(); ++byte)
    EXPECT_FALSE(icmp::answers(icmp::messageOf(std::span(intero).first(byte)), kIo, 1, kDati)) << byte;
}

TEST(PacchettoIcmp, ByteACasoNonSonoMaiUnaRisposta) {
  std::mt19937 caso(7);
  for (int giro = 0; giro < 20000; ++giro) {
    Byte byte(caso() % 80);
    for (auto& uno : byte) uno = static_cast<std::uint8_t>(caso());
    const auto messaggio = icmp::messageOf(byte);
    EXPECT_LE(messaggio.size(), byte.size());
    EXPECT_FALSE(icmp::answers(messaggio, kIo, 1, kDati));
  }
}
