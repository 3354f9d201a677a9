#include "ecrcom/trama.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

using namespace ecrcom;

namespace {

using Vettore = std::vector<std::uint8_t>;

Vettore comando(std::uint8_t modo, const std::string& nome, const Vettore& dati) {
  Intestazione testa;
  testa.modo = modo;
  testa.nome = nome;
  return componi(testa, dati);
}

ByteIntestazione testaDi(const Vettore& trama) {
  ByteIntestazione testa;
  std::copy_n(trama.begin(), testa.size(), testa.begin());
  return testa;
}

constexpr std::size_t kPosTipo = 4;
constexpr std::size_t kPosLunghezza = 8;
constexpr std::size_t kPosNome = 12;

}  // namespace

TEST(Trama, TornaComeEraStataComposta) {
  Intestazione testa;
  testa.tipo = Tipo::Risposta;
  testa.modo = 7;
  testa.codice = -2;
  testa.nome = "venduto.bin";
  const Vettore dati{1, 2, 3, 0, 255};
  const Vettore byte = componi(testa, dati);
  const std::optional<TramaLetta> letta = leggiTrama(byte);
  ASSERT_TRUE(letta);
  EXPECT_EQ(letta->lunghezza, byte.size());
  EXPECT_EQ(letta->trama.intestazione.tipo, Tipo::Risposta);
  EXPECT_EQ(letta->trama.intestazione.modo, 7);
  EXPECT_EQ(letta->trama.intestazione.codice, -2);
  EXPECT_EQ(letta->trama.intestazione.nome, "venduto.bin");
  EXPECT_EQ(letta->trama.dati, dati);
}

TEST(Trama, HaIByteFissati) {
  const Vettore byte = comando(6, "iva.bin", {0xAA, 0x55});
  const Vettore inizio{'E', 'C', 'R', '1', 1, 6, 0, 0, 2, 0, 0, 0, 'i', 'v', 'a', '.', 'b', 'i', 'n', 0};
  ASSERT_EQ(byte.size(), kByteIntestazione + 2);
  EXPECT_TRUE(std::equal(inizio.begin(), inizio.end(), byte.begin()));
  EXPECT_EQ(byte[48], 0xAA);
  EXPECT_EQ(byte[49], 0x55);
}

TEST(Trama, OgniTroncamentoNonEAncoraUnaTrama) {
  const Vettore byte = comando(6, "iva.bin", Vettore(20, 9));
  for (std::size_t lunghezza = 0; lunghezza < byte.size(); ++lunghezza) {
    EXPECT_TRUE(puoEssereTrama(Byte(byte).first(lunghezza))) << lunghezza;
    EXPECT_FALSE(leggiTrama(Byte(byte).first(lunghezza))) << lunghezza;
  }
  EXPECT_TRUE(leggiTrama(byte));
}

TEST(Trama, OgniByteGuastoSiScopre) {
  const Vettore byte = comando(6, "iva.bin", Vettore(20, 9));
  for (std::size_t i = 0; i < byte.size(); ++i) {
    Vettore guasta = byte;
    guasta[i] ^= 0x10U;
    EXPECT_FALSE(leggiTrama(guasta)) << i;
  }
}

TEST(Trama, UnaCodaDiAltriByteRestaFuori) {
  Vettore byte = comando(0, "", {});
  byte.insert(byte.end(), 10, 0x33);
  const std::optional<TramaLetta> letta = leggiTrama(byte);
  ASSERT_TRUE(letta);
  EXPECT_EQ(letta->lunghezza, kByteIntestazione);
}

TEST(Trama, IPrimiByteSbagliatiSiScopronoSubito) {
  EXPECT_TRUE(puoEssereTrama({}));
  EXPECT_TRUE(puoEssereTrama(byteDi("EC")));
  EXPECT_FALSE(puoEssereTrama(byteDi("U")));
  EXPECT_FALSE(puoEssereTrama(byteDi("ECR2")));
}

TEST(Trama, TipiFuoriElencoSiRifiutano) {
  for (const std::uint8_t tipo : Vettore{0, 6, 255}) {
    Vettore byte = comando(0, "", {});
    byte[kPosTipo] = tipo;
    EXPECT_FALSE(leggiIntestazione(testaDi(byte))) << int{tipo};
  }
}

TEST(Trama, UnaLunghezzaOltreIlLimiteSiRifiutaPrimaDeiDati) {
  Vettore byte = comando(6, "plu.bin", {});
  byte[kPosLunghezza + 2] = 0x40;
  ASSERT_TRUE(leggiIntestazione(testaDi(byte)));
  EXPECT_EQ(leggiIntestazione(testaDi(byte))->lunghezza, kByteMassimi);
  byte[kPosLunghezza] = 1;
  EXPECT_FALSE(leggiIntestazione(testaDi(byte)));
}

TEST(Trama, ITastiSonoAlPiuMilleventiquattroByte) {
  Intestazione testa;
  testa.tipo = Tipo::RispostaTasti;
  Vettore byte = componi(testa, Vettore(kTastiMassimi));
  ASSERT_TRUE(leggiTrama(byte));
  byte[kPosLunghezza] = 1;
  EXPECT_FALSE(leggiIntestazione(testaDi(byte)));
  EXPECT_THROW(componi(testa, Vettore(kTastiMassimi + 1)), std::length_error);
}

TEST(Trama, SoloUnFileDaInviareESoloLeRisposteHannoDatiLunghi) {
  const auto massimi = [](Tipo tipo, std::uint8_t modo) {
    Intestazione testa;
    testa.tipo = tipo;
    testa.modo = modo;
    return datiMassimi(testa);
  };
  for (std::uint8_t modo = 0; modo <= 9; ++modo) {
    EXPECT_EQ(massimi(Tipo::Comando, modo), modo == 6 ? kByteMassimi : 0U) << int{modo};
    EXPECT_EQ(massimi(Tipo::Risposta, modo), kByteMassimi) << int{modo};
  }
  EXPECT_EQ(massimi(Tipo::ApriTasti, 0), 0U);
  EXPECT_EQ(massimi(Tipo::Tasti, 0), kTastiMassimi);
  EXPECT_EQ(massimi(Tipo::RispostaTasti, 0), kTastiMassimi);
}

TEST(Trama, UnComandoSenzaFileChePortaDatiSiRifiuta) {
  EXPECT_THROW(comando(5, "", {1}), std::length_error);
  Vettore byte = comando(5, "", {});
  byte[kPosLunghezza] = 1;
  EXPECT_FALSE(leggiIntestazione(testaDi(byte)));
}

TEST(Trama, IlNomeFinisceConUnoZeroEDietroHaSoloZeri) {
  EXPECT_EQ(leggiTrama(comando(7, std::string(kNomeMassimo, 'n'), {}))->trama.intestazione.nome.size(),
            kNomeMassimo);
  EXPECT_THROW(comando(7, std::string(kNomeMassimo + 1, 'n'), {}), std::length_error);
  Vettore pieno = comando(7, std::string(kNomeMassimo, 'n'), {});
  pieno[kPosNome + kNomeMassimo] = 'n';
  EXPECT_FALSE(leggiIntestazione(testaDi(pieno)));
  Vettore sporco = comando(7, "iva.bin", {});
  sporco[kPosNome + 10] = 'x';
  EXPECT_FALSE(leggiIntestazione(testaDi(sporco)));
}

TEST(Trama, UnFileOltreIlMassimoNonSiCompone) {
  EXPECT_THROW(comando(6, "bitmap.bin", Vettore(kByteMassimi + 1)), std::length_error);
}
