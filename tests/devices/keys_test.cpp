#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "devices/fake_till.h"
#include "devices/loaded_library.h"
#include "ecrcom/codes.h"
#include "sostegno/test_till.h"

using namespace ecrcom;

namespace {

constexpr int kStato = 39;

IoResult mandaTrama(const Socket& presa, FrameType tipo, const std::string& dati) {
  Header testa;
  testa.kind = tipo;
  return dispatch(presa, compose(testa, byteOf(dati)), within(std::chrono::seconds(5)));
}

/// A till that takes every sequence and answers each one but the opening with these blocks.
auto cheRisponde(const std::vector<std::string>& blocchi) {
  return [blocchi](const Socket& presa) {
    Frame trama;
    while (receiveFrame(presa, within(std::chrono::seconds(10)), trama) == IoResult::Done) {
      mandaTrama(presa, FrameType::Reply, {});
      if (trama.header.kind == FrameType::OpenKeys) continue;
      for (const std::string& blocco : blocchi) mandaTrama(presa, FrameType::KeysReply, blocco);
    }
  };
}

struct Tasti : testing::Test {
  int apri(const QString& indirizzo) {
    QByteArray ip = indirizzo.toLatin1();
    return libreria.ecr_conn_xonxoff_ntw(ip.data());
  }
  int manda(int maniglia, QByteArray testo) { return libreria.ecr_send_xonxoff_ntw(maniglia, testo.data()); }
  int ricevi(int maniglia, int decimi, int lunghezza = 1024) {
    buffer = QByteArray(lunghezza, ' ');
    return libreria.ecr_recv_xonxoff_ntw(maniglia, buffer.data(), lunghezza, decimi);
  }

  Library libreria;
  QByteArray buffer;
};

}  // namespace

TEST_F(Tasti, LaLetturaDelloStatoPortaTrentanoveByteSenzaEco) {
  TestTill cassa;
  const int maniglia = apri(cassa.address());
  ASSERT_GE(maniglia, 1);
  EXPECT_EQ(manda(maniglia, "X89F"), kDone);
  EXPECT_EQ(ricevi(maniglia, 30), kStato);
  EXPECT_EQ(buffer.left(3), "ECR");
  EXPECT_EQ(buffer.mid(13, 3), "FCF");
  EXPECT_EQ(buffer.mid(kStato), QByteArray(1024 - kStato, ' '));
  EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kDone);
}

TEST_F(Tasti, UnaSequenzaSenzaStampaLasciaScadereLaRicezione) {
  TestTill cassa;
  const int maniglia = apri(cassa.address());
  EXPECT_EQ(manda(maniglia, "100H1R1T"), kDone);
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(ricevi(maniglia, 2), -kTimedOut);
  EXPECT_GE(orologio.elapsed(), 200);
  EXPECT_LT(orologio.elapsed(), 3000);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, LaSequenzaVuotaSiAccetta) {
  TestTill cassa;
  const int maniglia = apri(cassa.address());
  EXPECT_EQ(manda(maniglia, ""), kDone);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnCarattereDiControlloSiRifiutaELaLineaResta) {
  TestTill cassa;
  const int maniglia = apri(cassa.address());
  EXPECT_EQ(manda(maniglia, "1R\n"), kBadText);
  EXPECT_EQ(manda(maniglia, "X89F"), kDone);
  EXPECT_EQ(ricevi(maniglia, 30), kStato);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnaSequenzaTroppoLungaNonParte) {
  TestTill cassa;
  const int maniglia = apri(cassa.address());
  EXPECT_EQ(manda(maniglia, QByteArray(1024, '1')), kDone);
  EXPECT_EQ(manda(maniglia, QByteArray(1025, '1')), kBadText);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, OgniRicezionePortaUnBloccoSolo) {
  const FintaTill finta(cheRisponde({std::string(1024, 'a'), "bb"}));
  const int maniglia = apri(finta.address());
  EXPECT_EQ(manda(maniglia, "x"), kDone);
  EXPECT_EQ(ricevi(maniglia, 30), 1024);
  EXPECT_EQ(ricevi(maniglia, 30), 2);
  EXPECT_EQ(buffer.left(3), "bb ");
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, CioCheNonEntraNelBufferVieneConLaRicezioneDopo) {
  const FintaTill finta(cheRisponde({"abcde"}));
  const int maniglia = apri(finta.address());
  EXPECT_EQ(manda(maniglia, "x"), kDone);
  EXPECT_EQ(ricevi(maniglia, 30, 3), 3);
  EXPECT_EQ(buffer, "abc");
  EXPECT_EQ(ricevi(maniglia, 30, 3), 2);
  EXPECT_EQ(buffer, "de ");
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, CioCheNessunoHaRicevutoAspettaDietroGliInviiSeguenti) {
  const FintaTill finta(cheRisponde({"uno"}));
  const int maniglia = apri(finta.address());
  EXPECT_EQ(manda(maniglia, "x"), kDone);
  EXPECT_EQ(manda(maniglia, "x"), kDone);
  EXPECT_EQ(ricevi(maniglia, 30), 3);
  EXPECT_EQ(ricevi(maniglia, 30), 3);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnAttesaFinitaAMetaTramaRiprendeDaLi) {
  Header testa;
  testa.kind = FrameType::KeysReply;
  const auto trama = compose(testa, byteOf("intero"));
  const FintaTill finta([&](const Socket& presa) {
    Frame arrivata;
    for (int i = 0; i < 2; ++i) {
      if (receiveFrame(presa, within(std::chrono::seconds(10)), arrivata) != IoResult::Done) return;
      mandaTrama(presa, FrameType::Reply, {});
    }
    dispatch(presa, Bytes(trama).first(50), within(std::chrono::seconds(5)));
    if (receiveFrame(presa, within(std::chrono::seconds(10)), arrivata) != IoResult::Done) return;
    dispatch(presa, Bytes(trama).subspan(50), within(std::chrono::seconds(5)));
    mandaTrama(presa, FrameType::Reply, {});
    waitClosing(presa);
  });
  const int maniglia = apri(finta.address());
  EXPECT_EQ(manda(maniglia, "x"), kDone);
  EXPECT_EQ(ricevi(maniglia, 1), -kTimedOut);
  EXPECT_EQ(manda(maniglia, "y"), kDone);
  EXPECT_EQ(ricevi(maniglia, 30), 6);
  EXPECT_EQ(buffer.left(7), "intero ");
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, IlCodiceDellaCassaArrivaDalSuoInvio) {
  const FintaTill finta([](const Socket& presa) {
    Frame trama;
    Header testa;
    testa.kind = FrameType::Reply;
    while (receiveFrame(presa, within(std::chrono::seconds(10)), trama) == IoResult::Done) {
      testa.code = trama.header.kind == FrameType::Keys ? kWrongState : kDone;
      dispatch(presa, compose(testa, {}), within(std::chrono::seconds(5)));
    }
  });
  const int maniglia = apri(finta.address());
  EXPECT_EQ(manda(maniglia, "1R"), kWrongState);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, SeLaCassaSiSpegneInvioERicezioneDiconoLineaInterrotta) {
  TestTill cassa;
  const int maniglia = apri(cassa.address());
  cassa.switchOff();
  EXPECT_EQ(ricevi(maniglia, 30), -kLineCut);
  EXPECT_EQ(manda(maniglia, "1R"), kLineCut);
  EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kDone);
}

TEST_F(Tasti, LaSpazzaturaSullaLineaSiRiconosce) {
  const FintaTill finta([](const Socket& presa) {
    Frame trama;
    if (receiveFrame(presa, within(std::chrono::seconds(10)), trama) != IoResult::Done) return;
    mandaTrama(presa, FrameType::Reply, {});
    dispatch(presa, std::vector<std::uint8_t>(256, 0x55), within(std::chrono::seconds(5)));
    waitClosing(presa);
  });
  const int maniglia = apri(finta.address());
  ASSERT_GE(maniglia, 1);
  EXPECT_EQ(ricevi(maniglia, 30), -kGarbledReply);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnaTramaDiTastiConTestaAlterataSiRiconosceSenzaAspettare) {
  Header testa;
  testa.kind = FrameType::KeysReply;
  auto guasta = compose(testa, byteOf("xyz"));
  guasta.back() ^= 1U;
  const FintaTill finta([&](const Socket& presa) {
    Frame trama;
    if (receiveFrame(presa, within(std::chrono::seconds(10)), trama) != IoResult::Done) return;
    mandaTrama(presa, FrameType::Reply, {});
    dispatch(presa, guasta, within(std::chrono::seconds(5)));
    waitClosing(presa);
  });
  const int maniglia = apri(finta.address());
  ASSERT_GE(maniglia, 1);
  EXPECT_EQ(ricevi(maniglia, 20), -kGarbledReply);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnIndirizzoErratoOMutoDaUnCodiceNegativo) {
  EXPECT_EQ(apri(QString()), -kBadAddress);
  EXPECT_EQ(apri(QStringLiteral("999.1.1.1")), -kBadAddress);
  EXPECT_EQ(libreria.ecr_conn_xonxoff_ntw(nullptr), -kBadAddress);
  EXPECT_EQ(apri(ownAddress()), -kUnreachable);
  libreria.ecr_set_timeout(300, 200);
  const FintaTill muta(waitClosing);
  EXPECT_EQ(apri(muta.address()), -kTimedOut);
  EXPECT_EQ(libreria.message(-kTimedOut), libreria.message(kTimedOut));
}

TEST_F(Tasti, UnaRispostaInRitardoNonPassaPerQuellaDellaSequenzaDopo) {
  const FintaTill finta([](const Socket& presa) {
    Frame trama;
    if (receiveFrame(presa, within(std::chrono::seconds(10)), trama) != IoResult::Done) return;
    mandaTrama(presa, FrameType::Reply, {});
    // Says nothing to the first sequence until a second one is there, or the PC has hung up.
    for (int i = 0; i < 2; ++i)
      if (receiveFrame(presa, within(std::chrono::seconds(10)), trama) != IoResult::Done) return;
    mandaTrama(presa, FrameType::Reply, {});
    waitClosing(presa);
  });
  const int maniglia = apri(finta.address());
  ASSERT_GE(maniglia, 1);
  libreria.ecr_set_timeout(1000, 200);
  EXPECT_EQ(manda(maniglia, "x"), kTimedOut);
  EXPECT_EQ(manda(maniglia, "y"), kLineCut);
  EXPECT_EQ(ricevi(maniglia, 1), -kLineCut);
  EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kDone);
}

TEST_F(Tasti, UnaManigliaCheNonEApertaSiRifiuta) {
  for (const int maniglia : {0, -3, 1, 17, 1000000}) {
    EXPECT_EQ(manda(maniglia, "1R"), kBadHandle) << maniglia;
    EXPECT_EQ(ricevi(maniglia, 1), -kBadHandle) << maniglia;
    EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kBadHandle) << maniglia;
  }
}

TEST_F(Tasti, ArgomentiNulliSiRifiutano) {
  TestTill cassa;
  const int maniglia = apri(cassa.address());
  EXPECT_EQ(libreria.ecr_send_xonxoff_ntw(maniglia, nullptr), kBadText);
  EXPECT_LT(libreria.ecr_recv_xonxoff_ntw(maniglia, nullptr, 10, 1), 0);
  buffer = "intatto";
  EXPECT_LT(libreria.ecr_recv_xonxoff_ntw(maniglia, buffer.data(), 0, 1), 0);
  EXPECT_EQ(buffer, "intatto");
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, OltreSediciCollegamentiNonSeNeApronoAltri) {
  TestTill cassa;
  std::vector<int> maniglie;
  for (int i = 0; i < 16; ++i) maniglie.push_back(apri(cassa.address()));
  for (const int maniglia : maniglie) EXPECT_GE(maniglia, 1);
  EXPECT_EQ(apri(cassa.address()), -kTooManyConnections);
  libreria.ecr_disc_xonxoff_ntw(maniglie[5]);
  EXPECT_EQ(apri(cassa.address()), maniglie[5]);
  for (const int maniglia : maniglie) libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, ICollegamentiSonoIndipendentiDaiTrasferimenti) {
  TestTill cassa;
  const int maniglia = apri(cassa.address());
  EXPECT_EQ(libreria.command(cassa.address(), ECR_OPEN_MODE), kDone);
  EXPECT_EQ(manda(maniglia, "X89F"), kDone);
  EXPECT_EQ(ricevi(maniglia, 30), kStato);
  EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kDone);
  EXPECT_TRUE(cassa->transferOpen());
}
