#include "ecrcom/frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

using namespace ecrcom;

namespace {

using Vettore = std::vector<std::uint8_t>;

Vettore comando(std::uint8_t modo, const std::string& nome, const Vettore& dati) {
  Header testa;
  testa.mode = modo;
  testa.name = nome;
  return compose(testa, dati);
}

HeaderBytes testaDi(const Vettore& trama) {
  HeaderBytes testa;
  std::copy_n(trama.begin(), testa.size(), testa.begin());
  return testa;
}

constexpr std::size_t kPosTipo = 4;
constexpr std::size_t kPosLunghezza = 8;
constexpr std::size_t kPosNome = 12;

}  // namespace

TEST(Trama, TornaComeEraStataComposta) {
  Header testa;
  testa.kind = FrameType::Reply;
  testa.mode = 7;
  testa.code = -2;
  testa.name = "venduto.bin";
  const Vettore dati{1, 2, 3, 0, 255};
  const Vettore byte = compose(testa, dati);
  const std::optional<ReadFrame> letta = parseFrame(byte);
  ASSERT_TRUE(letta);
  EXPECT_EQ(letta->length, byte.size());
  EXPECT_EQ(letta->frame.header.kind, FrameType::Reply);
  EXPECT_EQ(letta->frame.header.mode, 7);
  EXPECT_EQ(letta->frame.header.code, -2);
  EXPECT_EQ(letta->frame.header.name, "venduto.bin");
  EXPECT_EQ(letta->frame.data, dati);
}

TEST(Trama, HaIByteFissati) {
  const Vettore byte = comando(6, "iva.bin", {0xAA, 0x55});
  const Vettore inizio{'E', 'C', 'R', '1', 1, 6, 0, 0, 2, 0, 0, 0, 'i', 'v', 'a', '.', 'b', 'i', 'n', 0};
  ASSERT_EQ(byte.size(), kHeaderBytes + 2);
  EXPECT_TRUE(std::equal(inizio.begin(), inizio.end(), byte.begin()));
  EXPECT_EQ(byte[48], 0xAA);
  EXPECT_EQ(byte[49], 0x55);
}

TEST(Trama, OgniTroncamentoNonEAncoraUnaTrama) {
  const Vettore byte = comando(6, "iva.bin", Vettore(20, 9));
  for (std::size_t lunghezza = 0; lunghezza < byte.size(); ++lunghezza) {
    EXPECT_TRUE(canBeFrame(Bytes(byte).first(lunghezza))) << lunghezza;
    EXPECT_FALSE(parseFrame(Bytes(byte).first(lunghezza))) << lunghezza;
  }
  EXPECT_TRUE(parseFrame(byte));
}

TEST(Trama, OgniByteGuastoSiScopre) {
  const Vettore byte = comando(6, "iva.bin", Vettore(20, 9));
  for (std::size_t i = 0; i < byte.size(); ++i) {
    Vettore guasta = byte;
    guasta[i] ^= 0x10U;
    EXPECT_FALSE(parseFrame(guasta)) << i;
  }
}

TEST(Trama, UnaCodaDiAltriByteRestaFuori) {
  Vettore byte = comando(0, "", {});
  byte.insert(byte.end(), 10, 0x33);
  const std::optional<ReadFrame> letta = parseFrame(byte);
  ASSERT_TRUE(letta);
  EXPECT_EQ(letta->length, kHeaderBytes);
}

TEST(Trama, IPrimiByteSbagliatiSiScopronoSubito) {
  EXPECT_TRUE(canBeFrame({}));
  EXPECT_TRUE(canBeFrame(byteOf("EC")));
  EXPECT_FALSE(canBeFrame(byteOf("U")));
  EXPECT_FALSE(canBeFrame(byteOf("ECR2")));
}

TEST(Trama, TipiFuoriElencoSiRifiutano) {
  for (const std::uint8_t tipo : Vettore{0, 6, 255}) {
    Vettore byte = comando(0, "", {});
    byte[kPosTipo] = tipo;
    EXPECT_FALSE(parseHeader(testaDi(byte))) << int{tipo};
  }
}

TEST(Trama, UnaLunghezzaOltreIlLimiteSiRifiutaPrimaDeiDati) {
  Vettore byte = comando(6, "plu.bin", {});
  byte[kPosLunghezza + 2] = 0x40;
  ASSERT_TRUE(parseHeader(testaDi(byte)));
  EXPECT_EQ(parseHeader(testaDi(byte))->length, kMaxBytes);
  byte[kPosLunghezza] = 1;
  EXPECT_FALSE(parseHeader(testaDi(byte)));
}

TEST(Trama, ITastiSonoAlPiuMilleventiquattroByte) {
  Header testa;
  testa.kind = FrameType::KeysReply;
  Vettore byte = compose(testa, Vettore(kMaxKeys));
  ASSERT_TRUE(parseFrame(byte));
  byte[kPosLunghezza] = 1;
  EXPECT_FALSE(parseHeader(testaDi(byte)));
  EXPECT_THROW(compose(testa, Vettore(kMaxKeys + 1)), std::length_error);
}

TEST(Trama, SoloUnFileDaInviareESoloLeRisposteHannoDatiLunghi) {
  const auto massimi = [](FrameType tipo, std::uint8_t modo) {
    Header testa;
    testa.kind = tipo;
    testa.mode = modo;
    return maxData(testa);
  };
  for (std::uint8_t modo = 0; modo <= 9; ++modo) {
    EXPECT_EQ(massimi(FrameType::Command, modo), modo == 6 ? kMaxBytes : 0U) << int{modo};
    EXPECT_EQ(massimi(FrameType::Reply, modo), kMaxBytes) << int{modo};
  }
  EXPECT_EQ(massimi(FrameType::OpenKeys, 0), 0U);
  EXPECT_EQ(massimi(FrameType::Keys, 0), kMaxKeys);
  EXPECT_EQ(massimi(FrameType::KeysReply, 0), kMaxKeys);
}

TEST(Trama, UnComandoSenzaFileChePortaDatiSiRifiuta) {
  EXPECT_THROW(comando(5, "", {1}), std::length_error);
  Vettore byte = comando(5, "", {});
  byte[kPosLunghezza] = 1;
  EXPECT_FALSE(parseHeader(testaDi(byte)));
}

TEST(Trama, IlNomeFinisceConUnoZeroEDietroHaSoloZeri) {
  EXPECT_EQ(parseFrame(comando(7, std::string(kMaxName, 'n'), {}))->frame.header.name.size(), kMaxName);
  EXPECT_THROW(comando(7, std::string(kMaxName + 1, 'n'), {}), std::length_error);
  Vettore pieno = comando(7, std::string(kMaxName, 'n'), {});
  pieno[kPosNome + kMaxName] = 'n';
  EXPECT_FALSE(parseHeader(testaDi(pieno)));
  Vettore sporco = comando(7, "iva.bin", {});
  sporco[kPosNome + 10] = 'x';
  EXPECT_FALSE(parseHeader(testaDi(sporco)));
}

TEST(Trama, UnFileOltreIlMassimoNonSiCompone) {
  EXPECT_THROW(comando(6, "bitmap.bin", Vettore(kMaxBytes + 1)), std::length_error);
}
