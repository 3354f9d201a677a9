#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

#include <QDir>
#include <QElapsedTimer>
#include <thread>

#include "devices/fake_till.h"
#include "devices/loaded_library.h"
#include "ecrcom/codes.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_till.h"

using namespace ecrcom;

namespace {

using Vettore = std::vector<std::uint8_t>;

Vettore risposta(std::uint8_t modo, std::int16_t codice, const Vettore& dati = {}) {
  Header testa;
  testa.kind = FrameType::Reply;
  testa.mode = modo;
  testa.code = codice;
  return compose(testa, dati);
}

/// What a peer says once it has read the whole command; then it waits for the PC to hang up.
auto cheDice(const Vettore& byte) {
  return [byte](const Socket& presa) {
    Frame comando;
    if (receiveFrame(presa, within(std::chrono::seconds(10)), comando) != IoResult::Done) return;
    dispatch(presa, byte, within(std::chrono::seconds(10)));
    waitClosing(presa);
  };
}

int descrittoriAperti() {
  return static_cast<int>(
      QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size());
}

struct Linea : testing::Test {
  int infoDa(const FintaTill& finta) { return libreria.command(finta.address(), ECR_INFO_MODE); }

  TemporaryFolder cartella;
  Library libreria;
};

}  // namespace

TEST_F(Linea, DoveNessunoAscoltaLaCassaNonERaggiungibileSubito) {
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(libreria.command(ownAddress(), ECR_INFO_MODE), kUnreachable);
  EXPECT_LT(orologio.elapsed(), ECR_CONNECT_MS);
}

TEST_F(Linea, UnaCassaSpentaNonERaggiungibile) {
  TestTill cassa;
  EXPECT_EQ(libreria.command(cassa.address(), ECR_INFO_MODE), kDone);
  cassa.switchOff();
  EXPECT_EQ(libreria.command(cassa.address(), ECR_INFO_MODE), kUnreachable);
}

TEST_F(Linea, UnaConnessioneCheNonSiCompieFinisceColTempo) {
  const QString indirizzo = ownAddress();
  const Socket ascolto = inListener(indirizzo, 0);
  Socket prima;
  ASSERT_EQ(connect(*ecrcom::address(indirizzo.toStdString()), within(std::chrono::seconds(5)), prima),
            IoResult::Done);
  libreria.ecr_set_timeout(200, 60000);
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(libreria.command(indirizzo, ECR_INFO_MODE), kTimedOut);
  EXPECT_GE(orologio.elapsed(), 200);
  EXPECT_LT(orologio.elapsed(), 5000);
}

TEST_F(Linea, ChiSgocciolaUnByteAllaVoltaNonTrattienePiuDelTempoFissato) {
  const Vettore intera = risposta(ECR_INFO_MODE, 0, Vettore(200, 'x'));
  const FintaTill finta([&](const Socket& presa) {
    for (const std::uint8_t& byte : intera) {
      if (dispatch(presa, {&byte, 1}, within(std::chrono::seconds(1))) != IoResult::Done) return;
      std::array<std::uint8_t, 64> scarto;
      std::size_t quanti = 0;
      receiveSome(presa, scarto, within(std::chrono::milliseconds(20)), quanti);
    }
  });
  libreria.ecr_set_timeout(1000, 300);
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(infoDa(finta), kTimedOut);
  EXPECT_GE(orologio.elapsed(), 300);
  EXPECT_LT(orologio.elapsed(), 2000);
}

TEST(LineaDellaCassa, UnPcCheSgocciolaPerdeLaLineaAllaScadenzaDellaTrama) {
  using namespace std::chrono_literals;
  ecrsim::Options opzioni;
  opzioni.wait = 2000ms;
  TestTill cassa(opzioni);
  Socket presa;
  ASSERT_EQ(connect(*ecrcom::address(cassa.address().toStdString()), within(5s), presa), IoResult::Done);
  Header testa;
  testa.mode = ECR_SEND_MODE;
  testa.name = "iva.bin";
  const Vettore trama = compose(testa, Vettore(233, 'i'));
  QElapsedTimer orologio;
  orologio.start();
  // The last byte of the header comes late in the time of the whole frame, then a byte of the data now and
  // then.
  std::size_t fatti = kHeaderBytes - 1;
  ASSERT_EQ(dispatch(presa, Bytes(trama).first(fatti), within(5s)), IoResult::Done);
  IoResult esito = IoResult::Expired;
  for (auto pausa = 1500ms; esito == IoResult::Expired && fatti < trama.size(); pausa = 20ms) {
    std::array<std::uint8_t, 64> scarto;
    std::size_t quanti = 0;
    esito = receiveSome(presa, scarto, within(pausa), quanti);
    if (esito == IoResult::Expired) dispatch(presa, Bytes(trama).subspan(fatti++, 1), within(5s));
  }
  EXPECT_EQ(esito, IoResult::Cut);
  EXPECT_GE(orologio.elapsed(), 2000);
  EXPECT_LT(orologio.elapsed(), 3200) << "header and data have one time together";
  EXPECT_TRUE(cassa->calls().empty());
}

TEST_F(Linea, ChiNonLeggeNonTrattienePiuDelTempoFissato) {
  cartella.write(QStringLiteral("bitmap.bin"), QByteArray(4 * 1024 * 1024, 'b'));
  const QString indirizzo = ownAddress();
  const Socket ascolto = inListener(indirizzo, 4);
  libreria.ecr_set_timeout(1000, 300);
  EXPECT_EQ(libreria.command(indirizzo, ECR_SEND_MODE, "bitmap.bin"), kTimedOut);
}

TEST_F(Linea, UnaTramaColControlloSbagliatoNonSiAccetta) {
  Vettore byte = risposta(ECR_INFO_MODE, 0, {'O', 'K'});
  byte.back() ^= 1U;
  const FintaTill finta(cheDice(byte));
  EXPECT_EQ(infoDa(finta), kGarbledReply);
  EXPECT_EQ(libreria.reply, QByteArray(256, ' '));
}

TEST_F(Linea, LaRispostaAUnAltroComandoNonSiAccetta) {
  const FintaTill finta(cheDice(risposta(ECR_CLOSE_MODE, 0)));
  EXPECT_EQ(infoDa(finta), kGarbledReply);
}

TEST_F(Linea, UnComandoAlPostoDellaRispostaNonSiAccetta) {
  const FintaTill finta(cheDice(compose(Header{}, {})));
  EXPECT_EQ(infoDa(finta), kGarbledReply);
}

TEST_F(Linea, UnaTestaInnocuaSenzaDatiFinisceColTempo) {
  Vettore byte = risposta(ECR_INFO_MODE, 0, Vettore(100, 'x'));
  byte.resize(kHeaderBytes + 50);
  const FintaTill finta(cheDice(byte));
  libreria.ecr_set_timeout(1000, 200);
  EXPECT_EQ(infoDa(finta), kTimedOut);
}

TEST_F(Linea, UnPrimoByteSbagliatoBastaARiconoscereLaSpazzatura) {
  const FintaTill finta(cheDice({'X'}));
  libreria.ecr_set_timeout(1000, 60000);
  EXPECT_EQ(infoDa(finta), kGarbledReply);
}

TEST_F(Linea, ChiRifiutaPrimaDiAverLettoTuttoSiSenteLoStesso) {
  cartella.write(QStringLiteral("bitmap.bin"), QByteArray(4 * 1024 * 1024, 'b'));
  const FintaTill finta([](const Socket& presa) {
    dispatch(presa, risposta(ECR_SEND_MODE, kUnknownFile), within(std::chrono::seconds(5)));
    presa.dismiss(within(std::chrono::seconds(10)));
  });
  EXPECT_EQ(libreria.command(finta.address(), ECR_SEND_MODE, "bitmap.bin"), kUnknownFile);
}

TEST_F(Linea, LaRispostaMassimaArrivaInteraEUnaPiuGrandeSiRifiuta) {
  Vettore massima = risposta(ECR_FETCH_MODE, 0, Vettore(kMaxBytes, 7));
  {
    const FintaTill finta(cheDice(massima));
    EXPECT_EQ(libreria.command(finta.address(), ECR_FETCH_MODE, "bitmap.bin"), kDone);
    EXPECT_EQ(cartella.read(QStringLiteral("bitmap.bin")).size(), static_cast<qsizetype>(kMaxBytes));
  }
  massima.resize(kHeaderBytes);
  constexpr std::size_t kPosLunghezza = 8;
  massima[kPosLunghezza] = 1;
  const FintaTill finta(cheDice(massima));
  EXPECT_EQ(libreria.command(finta.address(), ECR_FETCH_MODE, "bitmap.bin"), kGarbledReply);
}

TEST_F(Linea, TantiScambiDiFilaNonLascianoDescrittoriAperti) {
  TestTill cassa;
  EXPECT_EQ(libreria.command(cassa.address(), ECR_INFO_MODE), kDone);
  const int prima = descrittoriAperti();
  cartella.write(QStringLiteral("iva.bin"), QByteArray(233, 'i'));
  for (int i = 0; i < 250; ++i)
    for (const int modo : {ECR_OPEN_MODE, ECR_SEND_MODE, ECR_FETCH_MODE, ECR_CLOSE_MODE})
      ASSERT_EQ(libreria.command(cassa.address(), modo, modo >= ECR_SEND_MODE ? "iva.bin" : ""), kDone) << i;
  const QString spenta = ownAddress();
  for (int i = 0; i < 500; ++i) ASSERT_EQ(libreria.command(spenta, ECR_INFO_MODE), kUnreachable) << i;
  // The till closes its end of the last connections a moment after the PC has.
  EXPECT_LE(descrittoriAperti(), prima + 4);
}

TEST_F(Linea, DuePcInsiemeHannoCiascunoLeSueRisposte) {
  TestTill cassa;
  const auto chiede = [&] {
    for (int i = 0; i < 200; ++i) {
      QByteArray ip = cassa.address().toLatin1();
      QByteArray file(1, '\0');
      QByteArray buffer(256, ' ');
      ASSERT_EQ(libreria.ecr_command(ip.data(), file.data(), ECR_INFO_MODE, buffer.data(), 256), kDone);
      ASSERT_TRUE(buffer.startsWith("VER=3.00,"));
    }
  };
  std::thread altro(chiede);
  chiede();
  altro.join();
  EXPECT_EQ(cassa->calls().size(), 400U);
}

TEST_F(Linea, LaCassaSopravviveAChiLeParlaAVanvera) {
  TestTill cassa;
  const in_addr dove = *ecrcom::address(cassa.address().toStdString());
  for (const Vettore& vanvera : {Vettore(256, 0x55), Vettore{'E', 'C'}, Vettore{}, risposta(0, 0)}) {
    Socket presa;
    ASSERT_EQ(connect(dove, within(std::chrono::seconds(5)), presa), IoResult::Done);
    dispatch(presa, vanvera, within(std::chrono::seconds(5)));
  }
  EXPECT_EQ(libreria.command(cassa.address(), ECR_INFO_MODE), kDone);
}

TEST_F(Linea, LaCassaSiSpegneAncheConChiTieneLaLinea) {
  TestTill cassa;
  Socket presa;
  ASSERT_EQ(connect(*ecrcom::address(cassa.address().toStdString()), within(std::chrono::seconds(5)), presa),
            IoResult::Done);
  ASSERT_EQ(dispatch(presa, byteOf("EC"), within(std::chrono::seconds(5))), IoResult::Done);
  ASSERT_EQ(libreria.command(cassa.address(), ECR_INFO_MODE), kDone);
  QElapsedTimer orologio;
  orologio.start();
  cassa.switchOff();
  EXPECT_LT(orologio.elapsed(), 2000);
}

TEST_F(Linea, PiuComandiSullaStessaConnessioneHannoCiascunoLaSuaRisposta) {
  TestTill cassa;
  Socket presa;
  ASSERT_EQ(connect(*ecrcom::address(cassa.address().toStdString()), within(std::chrono::seconds(5)), presa),
            IoResult::Done);
  for (const std::uint8_t modo : {ECR_OPEN_MODE, ECR_OPEN_MODE, ECR_CLOSE_MODE}) {
    Header testa;
    testa.mode = modo;
    ASSERT_EQ(dispatch(presa, compose(testa, {}), within(std::chrono::seconds(5))), IoResult::Done);
  }
  std::vector<std::int16_t> codici;
  for (int i = 0; i < 3; ++i) {
    Frame trama;
    ASSERT_EQ(receiveFrame(presa, within(std::chrono::seconds(5)), trama), IoResult::Done);
    codici.push_back(trama.header.code);
  }
  EXPECT_EQ(codici, (std::vector<std::int16_t>{kDone, kTransferOpen, kDone}));
}
