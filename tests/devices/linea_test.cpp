#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

#include <QDir>
#include <QElapsedTimer>
#include <thread>

#include "devices/finta_cassa.h"
#include "devices/libreria.h"
#include "ecrcom/codici.h"
#include "sostegno/cartella_temporanea.h"
#include "sostegno/cassa.h"

using namespace ecrcom;

namespace {

using Vettore = std::vector<std::uint8_t>;

Vettore risposta(std::uint8_t modo, std::int16_t codice, const Vettore& dati = {}) {
  Intestazione testa;
  testa.tipo = Tipo::Risposta;
  testa.modo = modo;
  testa.codice = codice;
  return componi(testa, dati);
}

/// What a peer says once it has read the whole command; then it waits for the PC to hang up.
auto cheDice(const Vettore& byte) {
  return [byte](const Presa& presa) {
    Trama comando;
    if (riceviTrama(presa, fra(std::chrono::seconds(10)), comando) != Esito::Fatto) return;
    spedisci(presa, byte, fra(std::chrono::seconds(10)));
    aspettaChiusura(presa);
  };
}

int descrittoriAperti() {
  return static_cast<int>(
      QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size());
}

struct Linea : testing::Test {
  int infoDa(const FintaCassa& finta) { return libreria.comando(finta.indirizzo(), ECR_INFO_MODE); }

  CartellaTemporanea cartella;
  Libreria libreria;
};

}  // namespace

TEST_F(Linea, DoveNessunoAscoltaLaCassaNonERaggiungibileSubito) {
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(libreria.comando(indirizzoProprio(), ECR_INFO_MODE), kNonRaggiungibile);
  EXPECT_LT(orologio.elapsed(), ECR_CONNECT_MS);
}

TEST_F(Linea, UnaCassaSpentaNonERaggiungibile) {
  Cassa cassa;
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_INFO_MODE), kFatto);
  cassa.spegni();
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_INFO_MODE), kNonRaggiungibile);
}

TEST_F(Linea, UnaConnessioneCheNonSiCompieFinisceColTempo) {
  const QString indirizzo = indirizzoProprio();
  const Presa ascolto = inAscolto(indirizzo, 0);
  Presa prima;
  ASSERT_EQ(connetti(*ecrcom::indirizzo(indirizzo.toStdString()), fra(std::chrono::seconds(5)), prima),
            Esito::Fatto);
  libreria.ecr_set_timeout(200, 60000);
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(libreria.comando(indirizzo, ECR_INFO_MODE), kTempoScaduto);
  EXPECT_GE(orologio.elapsed(), 200);
  EXPECT_LT(orologio.elapsed(), 5000);
}

TEST_F(Linea, ChiSgocciolaUnByteAllaVoltaNonTrattienePiuDelTempoFissato) {
  const Vettore intera = risposta(ECR_INFO_MODE, 0, Vettore(200, 'x'));
  const FintaCassa finta([&](const Presa& presa) {
    for (const std::uint8_t& byte : intera) {
      if (spedisci(presa, {&byte, 1}, fra(std::chrono::seconds(1))) != Esito::Fatto) return;
      std::array<std::uint8_t, 64> scarto;
      std::size_t quanti = 0;
      riceviQualcosa(presa, scarto, fra(std::chrono::milliseconds(20)), quanti);
    }
  });
  libreria.ecr_set_timeout(1000, 300);
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(infoDa(finta), kTempoScaduto);
  EXPECT_GE(orologio.elapsed(), 300);
  EXPECT_LT(orologio.elapsed(), 2000);
}

TEST(LineaDellaCassa, UnPcCheSgocciolaPerdeLaLineaAllaScadenzaDellaTrama) {
  using namespace std::chrono_literals;
  ecrsim::Opzioni opzioni;
  opzioni.attesa = 2000ms;
  Cassa cassa(opzioni);
  Presa presa;
  ASSERT_EQ(connetti(*ecrcom::indirizzo(cassa.indirizzo().toStdString()), fra(5s), presa), Esito::Fatto);
  Intestazione testa;
  testa.modo = ECR_SEND_MODE;
  testa.nome = "iva.bin";
  const Vettore trama = componi(testa, Vettore(233, 'i'));
  QElapsedTimer orologio;
  orologio.start();
  // The last byte of the header comes late in the time of the whole frame, then a byte of the data now and
  // then.
  std::size_t fatti = kByteIntestazione - 1;
  ASSERT_EQ(spedisci(presa, Byte(trama).first(fatti), fra(5s)), Esito::Fatto);
  Esito esito = Esito::Scaduto;
  for (auto pausa = 1500ms; esito == Esito::Scaduto && fatti < trama.size(); pausa = 20ms) {
    std::array<std::uint8_t, 64> scarto;
    std::size_t quanti = 0;
    esito = riceviQualcosa(presa, scarto, fra(pausa), quanti);
    if (esito == Esito::Scaduto) spedisci(presa, Byte(trama).subspan(fatti++, 1), fra(5s));
  }
  EXPECT_EQ(esito, Esito::Tagliato);
  EXPECT_GE(orologio.elapsed(), 2000);
  EXPECT_LT(orologio.elapsed(), 3200) << "header and data have one time together";
  EXPECT_TRUE(cassa->chiamate().empty());
}

TEST_F(Linea, ChiNonLeggeNonTrattienePiuDelTempoFissato) {
  cartella.scrivi(QStringLiteral("bitmap.bin"), QByteArray(4 * 1024 * 1024, 'b'));
  const QString indirizzo = indirizzoProprio();
  const Presa ascolto = inAscolto(indirizzo, 4);
  libreria.ecr_set_timeout(1000, 300);
  EXPECT_EQ(libreria.comando(indirizzo, ECR_SEND_MODE, "bitmap.bin"), kTempoScaduto);
}

TEST_F(Linea, UnaTramaColControlloSbagliatoNonSiAccetta) {
  Vettore byte = risposta(ECR_INFO_MODE, 0, {'O', 'K'});
  byte.back() ^= 1U;
  const FintaCassa finta(cheDice(byte));
  EXPECT_EQ(infoDa(finta), kRispostaIncomprensibile);
  EXPECT_EQ(libreria.risposta, QByteArray(256, ' '));
}

TEST_F(Linea, LaRispostaAUnAltroComandoNonSiAccetta) {
  const FintaCassa finta(cheDice(risposta(ECR_CLOSE_MODE, 0)));
  EXPECT_EQ(infoDa(finta), kRispostaIncomprensibile);
}

TEST_F(Linea, UnComandoAlPostoDellaRispostaNonSiAccetta) {
  const FintaCassa finta(cheDice(componi(Intestazione{}, {})));
  EXPECT_EQ(infoDa(finta), kRispostaIncomprensibile);
}

TEST_F(Linea, UnaTestaInnocuaSenzaDatiFinisceColTempo) {
  Vettore byte = risposta(ECR_INFO_MODE, 0, Vettore(100, 'x'));
  byte.resize(kByteIntestazione + 50);
  const FintaCassa finta(cheDice(byte));
  libreria.ecr_set_timeout(1000, 200);
  EXPECT_EQ(infoDa(finta), kTempoScaduto);
}

TEST_F(Linea, UnPrimoByteSbagliatoBastaARiconoscereLaSpazzatura) {
  const FintaCassa finta(cheDice({'X'}));
  libreria.ecr_set_timeout(1000, 60000);
  EXPECT_EQ(infoDa(finta), kRispostaIncomprensibile);
}

TEST_F(Linea, ChiRifiutaPrimaDiAverLettoTuttoSiSenteLoStesso) {
  cartella.scrivi(QStringLiteral("bitmap.bin"), QByteArray(4 * 1024 * 1024, 'b'));
  const FintaCassa finta([](const Presa& presa) {
    spedisci(presa, risposta(ECR_SEND_MODE, kFileSconosciuto), fra(std::chrono::seconds(5)));
    presa.congeda(fra(std::chrono::seconds(10)));
  });
  EXPECT_EQ(libreria.comando(finta.indirizzo(), ECR_SEND_MODE, "bitmap.bin"), kFileSconosciuto);
}

TEST_F(Linea, LaRispostaMassimaArrivaInteraEUnaPiuGrandeSiRifiuta) {
  Vettore massima = risposta(ECR_FETCH_MODE, 0, Vettore(kByteMassimi, 7));
  {
    const FintaCassa finta(cheDice(massima));
    EXPECT_EQ(libreria.comando(finta.indirizzo(), ECR_FETCH_MODE, "bitmap.bin"), kFatto);
    EXPECT_EQ(cartella.leggi(QStringLiteral("bitmap.bin")).size(), static_cast<qsizetype>(kByteMassimi));
  }
  massima.resize(kByteIntestazione);
  constexpr std::size_t kPosLunghezza = 8;
  massima[kPosLunghezza] = 1;
  const FintaCassa finta(cheDice(massima));
  EXPECT_EQ(libreria.comando(finta.indirizzo(), ECR_FETCH_MODE, "bitmap.bin"), kRispostaIncomprensibile);
}

TEST_F(Linea, TantiScambiDiFilaNonLascianoDescrittoriAperti) {
  Cassa cassa;
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_INFO_MODE), kFatto);
  const int prima = descrittoriAperti();
  cartella.scrivi(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  for (int i = 0; i < 250; ++i)
    for (const int modo : {ECR_OPEN_MODE, ECR_SEND_MODE, ECR_FETCH_MODE, ECR_CLOSE_MODE})
      ASSERT_EQ(libreria.comando(cassa.indirizzo(), modo, modo >= ECR_SEND_MODE ? "iva.bin" : ""), kFatto)
          << i;
  const QString spenta = indirizzoProprio();
  for (int i = 0; i < 500; ++i) ASSERT_EQ(libreria.comando(spenta, ECR_INFO_MODE), kNonRaggiungibile) << i;
  // The till closes its end of the last connections a moment after the PC has.
  EXPECT_LE(descrittoriAperti(), prima + 4);
}

TEST_F(Linea, DuePcInsiemeHannoCiascunoLeSueRisposte) {
  Cassa cassa;
  const auto chiede = [&] {
    for (int i = 0; i < 200; ++i) {
      QByteArray ip = cassa.indirizzo().toLatin1();
      QByteArray file(1, '\0');
      QByteArray buffer(256, ' ');
      ASSERT_EQ(libreria.ecr_command(ip.data(), file.data(), ECR_INFO_MODE, buffer.data(), 256), kFatto);
      ASSERT_TRUE(buffer.startsWith("VER=3.00,"));
    }
  };
  std::thread altro(chiede);
  chiede();
  altro.join();
  EXPECT_EQ(cassa->chiamate().size(), 400U);
}

TEST_F(Linea, LaCassaSopravviveAChiLeParlaAVanvera) {
  Cassa cassa;
  const in_addr dove = *ecrcom::indirizzo(cassa.indirizzo().toStdString());
  for (const Vettore& vanvera : {Vettore(256, 0x55), Vettore{'E', 'C'}, Vettore{}, risposta(0, 0)}) {
    Presa presa;
    ASSERT_EQ(connetti(dove, fra(std::chrono::seconds(5)), presa), Esito::Fatto);
    spedisci(presa, vanvera, fra(std::chrono::seconds(5)));
  }
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_INFO_MODE), kFatto);
}

TEST_F(Linea, LaCassaSiSpegneAncheConChiTieneLaLinea) {
  Cassa cassa;
  Presa presa;
  ASSERT_EQ(
      connetti(*ecrcom::indirizzo(cassa.indirizzo().toStdString()), fra(std::chrono::seconds(5)), presa),
      Esito::Fatto);
  ASSERT_EQ(spedisci(presa, byteDi("EC"), fra(std::chrono::seconds(5))), Esito::Fatto);
  ASSERT_EQ(libreria.comando(cassa.indirizzo(), ECR_INFO_MODE), kFatto);
  QElapsedTimer orologio;
  orologio.start();
  cassa.spegni();
  EXPECT_LT(orologio.elapsed(), 2000);
}

TEST_F(Linea, PiuComandiSullaStessaConnessioneHannoCiascunoLaSuaRisposta) {
  Cassa cassa;
  Presa presa;
  ASSERT_EQ(
      connetti(*ecrcom::indirizzo(cassa.indirizzo().toStdString()), fra(std::chrono::seconds(5)), presa),
      Esito::Fatto);
  for (const std::uint8_t modo : {ECR_OPEN_MODE, ECR_OPEN_MODE, ECR_CLOSE_MODE}) {
    Intestazione testa;
    testa.modo = modo;
    ASSERT_EQ(spedisci(presa, componi(testa, {}), fra(std::chrono::seconds(5))), Esito::Fatto);
  }
  std::vector<std::int16_t> codici;
  for (int i = 0; i < 3; ++i) {
    Trama trama;
    ASSERT_EQ(riceviTrama(presa, fra(std::chrono::seconds(5)), trama), Esito::Fatto);
    codici.push_back(trama.intestazione.codice);
  }
  EXPECT_EQ(codici, (std::vector<std::int16_t>{kFatto, kTrasferimentoAperto, kFatto}));
}
