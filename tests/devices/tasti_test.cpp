#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "devices/finta_cassa.h"
#include "devices/libreria.h"
#include "ecrcom/codici.h"
#include "sostegno/cassa.h"

using namespace ecrcom;

namespace {

constexpr int kStato = 39;

Esito mandaTrama(const Presa& presa, Tipo tipo, const std::string& dati) {
  Intestazione testa;
  testa.tipo = tipo;
  return spedisci(presa, componi(testa, byteDi(dati)), fra(std::chrono::seconds(5)));
}

/// A till that takes every sequence and answers each one but the opening with these blocks.
auto cheRisponde(const std::vector<std::string>& blocchi) {
  return [blocchi](const Presa& presa) {
    Trama trama;
    while (riceviTrama(presa, fra(std::chrono::seconds(10)), trama) == Esito::Fatto) {
      mandaTrama(presa, Tipo::Risposta, {});
      if (trama.intestazione.tipo == Tipo::ApriTasti) continue;
      for (const std::string& blocco : blocchi) mandaTrama(presa, Tipo::RispostaTasti, blocco);
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

  Libreria libreria;
  QByteArray buffer;
};

}  // namespace

TEST_F(Tasti, LaLetturaDelloStatoPortaTrentanoveByteSenzaEco) {
  Cassa cassa;
  const int maniglia = apri(cassa.indirizzo());
  ASSERT_GE(maniglia, 1);
  EXPECT_EQ(manda(maniglia, "X89F"), kFatto);
  EXPECT_EQ(ricevi(maniglia, 30), kStato);
  EXPECT_EQ(buffer.left(3), "ECR");
  EXPECT_EQ(buffer.mid(13, 3), "FCF");
  EXPECT_EQ(buffer.mid(kStato), QByteArray(1024 - kStato, ' '));
  EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kFatto);
}

TEST_F(Tasti, UnaSequenzaSenzaStampaLasciaScadereLaRicezione) {
  Cassa cassa;
  const int maniglia = apri(cassa.indirizzo());
  EXPECT_EQ(manda(maniglia, "100H1R1T"), kFatto);
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(ricevi(maniglia, 2), -kTempoScaduto);
  EXPECT_GE(orologio.elapsed(), 200);
  EXPECT_LT(orologio.elapsed(), 3000);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, LaSequenzaVuotaSiAccetta) {
  Cassa cassa;
  const int maniglia = apri(cassa.indirizzo());
  EXPECT_EQ(manda(maniglia, ""), kFatto);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnCarattereDiControlloSiRifiutaELaLineaResta) {
  Cassa cassa;
  const int maniglia = apri(cassa.indirizzo());
  EXPECT_EQ(manda(maniglia, "1R\n"), kTestoErrato);
  EXPECT_EQ(manda(maniglia, "X89F"), kFatto);
  EXPECT_EQ(ricevi(maniglia, 30), kStato);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnaSequenzaTroppoLungaNonParte) {
  Cassa cassa;
  const int maniglia = apri(cassa.indirizzo());
  EXPECT_EQ(manda(maniglia, QByteArray(1024, '1')), kFatto);
  EXPECT_EQ(manda(maniglia, QByteArray(1025, '1')), kTestoErrato);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, OgniRicezionePortaUnBloccoSolo) {
  const FintaCassa finta(cheRisponde({std::string(1024, 'a'), "bb"}));
  const int maniglia = apri(finta.indirizzo());
  EXPECT_EQ(manda(maniglia, "x"), kFatto);
  EXPECT_EQ(ricevi(maniglia, 30), 1024);
  EXPECT_EQ(ricevi(maniglia, 30), 2);
  EXPECT_EQ(buffer.left(3), "bb ");
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, CioCheNonEntraNelBufferVieneConLaRicezioneDopo) {
  const FintaCassa finta(cheRisponde({"abcde"}));
  const int maniglia = apri(finta.indirizzo());
  EXPECT_EQ(manda(maniglia, "x"), kFatto);
  EXPECT_EQ(ricevi(maniglia, 30, 3), 3);
  EXPECT_EQ(buffer, "abc");
  EXPECT_EQ(ricevi(maniglia, 30, 3), 2);
  EXPECT_EQ(buffer, "de ");
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, CioCheNessunoHaRicevutoAspettaDietroGliInviiSeguenti) {
  const FintaCassa finta(cheRisponde({"uno"}));
  const int maniglia = apri(finta.indirizzo());
  EXPECT_EQ(manda(maniglia, "x"), kFatto);
  EXPECT_EQ(manda(maniglia, "x"), kFatto);
  EXPECT_EQ(ricevi(maniglia, 30), 3);
  EXPECT_EQ(ricevi(maniglia, 30), 3);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnAttesaFinitaAMetaTramaRiprendeDaLi) {
  Intestazione testa;
  testa.tipo = Tipo::RispostaTasti;
  const auto trama = componi(testa, byteDi("intero"));
  const FintaCassa finta([&](const Presa& presa) {
    Trama arrivata;
    for (int i = 0; i < 2; ++i) {
      if (riceviTrama(presa, fra(std::chrono::seconds(10)), arrivata) != Esito::Fatto) return;
      mandaTrama(presa, Tipo::Risposta, {});
    }
    spedisci(presa, Byte(trama).first(50), fra(std::chrono::seconds(5)));
    if (riceviTrama(presa, fra(std::chrono::seconds(10)), arrivata) != Esito::Fatto) return;
    spedisci(presa, Byte(trama).subspan(50), fra(std::chrono::seconds(5)));
    mandaTrama(presa, Tipo::Risposta, {});
    aspettaChiusura(presa);
  });
  const int maniglia = apri(finta.indirizzo());
  EXPECT_EQ(manda(maniglia, "x"), kFatto);
  EXPECT_EQ(ricevi(maniglia, 1), -kTempoScaduto);
  EXPECT_EQ(manda(maniglia, "y"), kFatto);
  EXPECT_EQ(ricevi(maniglia, 30), 6);
  EXPECT_EQ(buffer.left(7), "intero ");
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, IlCodiceDellaCassaArrivaDalSuoInvio) {
  const FintaCassa finta([](const Presa& presa) {
    Trama trama;
    Intestazione testa;
    testa.tipo = Tipo::Risposta;
    while (riceviTrama(presa, fra(std::chrono::seconds(10)), trama) == Esito::Fatto) {
      testa.codice = trama.intestazione.tipo == Tipo::Tasti ? kStatoErrato : kFatto;
      spedisci(presa, componi(testa, {}), fra(std::chrono::seconds(5)));
    }
  });
  const int maniglia = apri(finta.indirizzo());
  EXPECT_EQ(manda(maniglia, "1R"), kStatoErrato);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, SeLaCassaSiSpegneInvioERicezioneDiconoLineaInterrotta) {
  Cassa cassa;
  const int maniglia = apri(cassa.indirizzo());
  cassa.spegni();
  EXPECT_EQ(ricevi(maniglia, 30), -kLineaInterrotta);
  EXPECT_EQ(manda(maniglia, "1R"), kLineaInterrotta);
  EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kFatto);
}

TEST_F(Tasti, LaSpazzaturaSullaLineaSiRiconosce) {
  const FintaCassa finta([](const Presa& presa) {
    Trama trama;
    if (riceviTrama(presa, fra(std::chrono::seconds(10)), trama) != Esito::Fatto) return;
    mandaTrama(presa, Tipo::Risposta, {});
    spedisci(presa, std::vector<std::uint8_t>(256, 0x55), fra(std::chrono::seconds(5)));
    aspettaChiusura(presa);
  });
  const int maniglia = apri(finta.indirizzo());
  ASSERT_GE(maniglia, 1);
  EXPECT_EQ(ricevi(maniglia, 30), -kRispostaIncomprensibile);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnaTramaDiTastiConTestaAlterataSiRiconosceSenzaAspettare) {
  Intestazione testa;
  testa.tipo = Tipo::RispostaTasti;
  auto guasta = componi(testa, byteDi("xyz"));
  guasta.back() ^= 1U;
  const FintaCassa finta([&](const Presa& presa) {
    Trama trama;
    if (riceviTrama(presa, fra(std::chrono::seconds(10)), trama) != Esito::Fatto) return;
    mandaTrama(presa, Tipo::Risposta, {});
    spedisci(presa, guasta, fra(std::chrono::seconds(5)));
    aspettaChiusura(presa);
  });
  const int maniglia = apri(finta.indirizzo());
  ASSERT_GE(maniglia, 1);
  EXPECT_EQ(ricevi(maniglia, 20), -kRispostaIncomprensibile);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, UnIndirizzoErratoOMutoDaUnCodiceNegativo) {
  EXPECT_EQ(apri(QString()), -kIndirizzoErrato);
  EXPECT_EQ(apri(QStringLiteral("999.1.1.1")), -kIndirizzoErrato);
  EXPECT_EQ(libreria.ecr_conn_xonxoff_ntw(nullptr), -kIndirizzoErrato);
  EXPECT_EQ(apri(indirizzoProprio()), -kNonRaggiungibile);
  libreria.ecr_set_timeout(300, 200);
  const FintaCassa muta(aspettaChiusura);
  EXPECT_EQ(apri(muta.indirizzo()), -kTempoScaduto);
  EXPECT_EQ(libreria.messaggio(-kTempoScaduto), libreria.messaggio(kTempoScaduto));
}

TEST_F(Tasti, UnaRispostaInRitardoNonPassaPerQuellaDellaSequenzaDopo) {
  const FintaCassa finta([](const Presa& presa) {
    Trama trama;
    if (riceviTrama(presa, fra(std::chrono::seconds(10)), trama) != Esito::Fatto) return;
    mandaTrama(presa, Tipo::Risposta, {});
    // Says nothing to the first sequence until a second one is there, or the PC has hung up.
    for (int i = 0; i < 2; ++i)
      if (riceviTrama(presa, fra(std::chrono::seconds(10)), trama) != Esito::Fatto) return;
    mandaTrama(presa, Tipo::Risposta, {});
    aspettaChiusura(presa);
  });
  const int maniglia = apri(finta.indirizzo());
  ASSERT_GE(maniglia, 1);
  libreria.ecr_set_timeout(1000, 200);
  EXPECT_EQ(manda(maniglia, "x"), kTempoScaduto);
  EXPECT_EQ(manda(maniglia, "y"), kLineaInterrotta);
  EXPECT_EQ(ricevi(maniglia, 1), -kLineaInterrotta);
  EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kFatto);
}

TEST_F(Tasti, UnaManigliaCheNonEApertaSiRifiuta) {
  for (const int maniglia : {0, -3, 1, 17, 1000000}) {
    EXPECT_EQ(manda(maniglia, "1R"), kManigliaErrata) << maniglia;
    EXPECT_EQ(ricevi(maniglia, 1), -kManigliaErrata) << maniglia;
    EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kManigliaErrata) << maniglia;
  }
}

TEST_F(Tasti, ArgomentiNulliSiRifiutano) {
  Cassa cassa;
  const int maniglia = apri(cassa.indirizzo());
  EXPECT_EQ(libreria.ecr_send_xonxoff_ntw(maniglia, nullptr), kTestoErrato);
  EXPECT_LT(libreria.ecr_recv_xonxoff_ntw(maniglia, nullptr, 10, 1), 0);
  buffer = "intatto";
  EXPECT_LT(libreria.ecr_recv_xonxoff_ntw(maniglia, buffer.data(), 0, 1), 0);
  EXPECT_EQ(buffer, "intatto");
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, OltreSediciCollegamentiNonSeNeApronoAltri) {
  Cassa cassa;
  std::vector<int> maniglie;
  for (int i = 0; i < 16; ++i) maniglie.push_back(apri(cassa.indirizzo()));
  for (const int maniglia : maniglie) EXPECT_GE(maniglia, 1);
  EXPECT_EQ(apri(cassa.indirizzo()), -kTroppiCollegamenti);
  libreria.ecr_disc_xonxoff_ntw(maniglie[5]);
  EXPECT_EQ(apri(cassa.indirizzo()), maniglie[5]);
  for (const int maniglia : maniglie) libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Tasti, ICollegamentiSonoIndipendentiDaiTrasferimenti) {
  Cassa cassa;
  const int maniglia = apri(cassa.indirizzo());
  EXPECT_EQ(libreria.comando(cassa.indirizzo(), ECR_OPEN_MODE), kFatto);
  EXPECT_EQ(manda(maniglia, "X89F"), kFatto);
  EXPECT_EQ(ricevi(maniglia, 30), kStato);
  EXPECT_EQ(libreria.ecr_disc_xonxoff_ntw(maniglia), kFatto);
  EXPECT_TRUE(cassa->trasferimentoAperto());
}
