#include <gtest/gtest.h>

#include "scena.h"

using namespace ecrlink;
using ecrsim::Cosa;

namespace {

constexpr std::int16_t kCodice = 16;

struct Caso {
  Modo modo;
  Cosa cosa;
};

const char* nomeDi(Cosa cosa) {
  switch (cosa) {
    case Cosa::Codice:
      return "Codice";
    case Cosa::Silenzio:
      return "Silenzio";
    case Cosa::TaglioPrima:
      return "TaglioPrima";
    case Cosa::TaglioDentro:
      return "TaglioDentro";
    case Cosa::TaglioDopo:
      return "TaglioDopo";
    case Cosa::FileCorto:
      return "FileCorto";
    case Cosa::FileLungo:
      return "FileLungo";
    case Cosa::Spazzatura:
      return "Spazzatura";
  }
  return "";
}

std::string nomeDelCaso(const testing::TestParamInfo<Caso>& info) {
  return "Modo" + std::to_string(static_cast<int>(info.param.modo)) + nomeDi(info.param.cosa);
}

std::vector<Caso> casi(std::initializer_list<Modo> modi) {
  std::vector<Caso> tutti;
  for (const Modo modo : modi)
    for (const Cosa cosa : {Cosa::Codice, Cosa::Silenzio, Cosa::TaglioPrima, Cosa::TaglioDentro,
                            Cosa::TaglioDopo, Cosa::FileCorto, Cosa::FileLungo, Cosa::Spazzatura})
      tutti.push_back({modo, cosa});
  return tutti;
}

/// The library's message for a fault; empty where the exchange as such goes well.
QString messaggioDi(const Caso& caso) {
  switch (caso.cosa) {
    case Cosa::Codice:
      return QStringLiteral("Errore nella memoria della cassa");
    case Cosa::Silenzio:
      return QStringLiteral("Tempo scaduto, la cassa non risponde");
    case Cosa::TaglioPrima:
    case Cosa::TaglioDentro:
    case Cosa::TaglioDopo:
      return QStringLiteral("Collegamento con la cassa interrotto");
    case Cosa::Spazzatura:
      return QStringLiteral("Risposta della cassa non riconosciuta");
    case Cosa::FileCorto:
    case Cosa::FileLungo:
      return caso.modo == Modo::Invia ? QStringLiteral("Lunghezza del file non accettata dalla cassa")
                                      : QString();
  }
  return {};
}

std::vector<Riquadro> riquadriDi(const Caso& caso) {
  const QString messaggio = messaggioDi(caso);
  return messaggio.isEmpty() ? std::vector<Riquadro>() : std::vector{erroreDiComunicazione(messaggio)};
}

QString fileDi(Modo modo) {
  if (modo == Modo::Invia) return QStringLiteral("iva.bin");
  return modo == Modo::Ricevi ? QStringLiteral("venduto.bin") : QString();
}

struct Guasto : testing::TestWithParam<Caso> {
  AttesaBreve attesa;
  Scena scena;
  Cassa cassa;
  SchermoLink schermo{scena.contesto};

  void rompi() {
    cassa->guasti({{.modo = static_cast<int>(GetParam().modo), .cosa = GetParam().cosa, .codice = kCodice}});
  }
  std::vector<Riquadro> connetti() {
    schermo.digita(cassa.indirizzo());
    schermo.clicca("CmdInviaModECR");
    return scena.riquadri();
  }
};

class GuastoInConnessione : public Guasto {};
class GuastoInTrasferimento : public Guasto {};

}  // namespace

TEST_P(GuastoInConnessione, SiDiceELoSchermoFinisceNelSuoStato) {
  rompi();
  std::vector<Riquadro> attesi = riquadriDi(GetParam());
  // A reply cut short has lost its state; one with a tail has it still.
  const bool senzaStato = GetParam().modo == Modo::EcrInfo && GetParam().cosa == Cosa::FileCorto;
  if (senzaStato)
    attesi = {critico(QStringLiteral(
        "Funzione non disponibile! Prego porre la cassa nello stato di IDLE o PROGRAMMAZIONE"))};
  EXPECT_EQ(connetti(), attesi);
  const bool infoFallita = GetParam().modo == Modo::EcrInfo && !attesi.empty();
  EXPECT_EQ(statoDi(schermo), senzaStato ? (StatoLink{false, true, QString()})
                                         : (StatoLink{true, infoFallita, cassa.indirizzo()}));
}

TEST_P(GuastoInTrasferimento, UnMessaggioSoloELaConnessioneSuccessivaRimetteInOrdine) {
  // The opening call stands in front of every transfer: any will do.
  const Modo modo = GetParam().modo == Modo::ApriTrasferimento ? Modo::AzzeraVenduto : GetParam().modo;
  cassa.venduto({{.posto = 3, .importo = 100, .pezzi = 1}});
  scena.cartella.scrivi(QStringLiteral("iva.bin"), QByteArray(233, '\0'));
  ASSERT_EQ(connetti(), std::vector<Riquadro>());
  rompi();
  const std::vector<Riquadro> attesi = riquadriDi(GetParam());
  EXPECT_EQ(avviaECR(fileDi(modo), modo, scena.contesto), attesi.empty() ? 0 : 1);
  EXPECT_EQ(scena.riquadri(), attesi);
  EXPECT_EQ(statoDi(schermo), (StatoLink{true, false, cassa.indirizzo()}));
  cassa->guasti({});
  SchermoLink nuovo(scena.contesto);
  nuovo.digita(cassa.indirizzo());
  nuovo.clicca("CmdInviaModECR");
  EXPECT_EQ(avviaECR(fileDi(modo), modo, scena.contesto), 0);
  EXPECT_EQ(scena.riquadri(), std::vector<Riquadro>());
}

INSTANTIATE_TEST_SUITE_P(Modi, GuastoInConnessione,
                         testing::ValuesIn(casi({Modo::EcrInfo, Modo::ChiudiTrasferimento})), nomeDelCaso);
INSTANTIATE_TEST_SUITE_P(Modi, GuastoInTrasferimento,
                         testing::ValuesIn(casi({Modo::ApriTrasferimento, Modo::AzzeraVenduto, Modo::Invia,
                                                 Modo::Ricevi, Modo::ChiusuraFiscale})),
                         nomeDelCaso);

TEST(GuastoDelFileRicevuto, CortoOLungoArrivaComeLaCassaLoManda) {
  for (const auto& [cosa, byte] : {std::pair{Cosa::FileCorto, 30000}, std::pair{Cosa::FileLungo, 60100}}) {
    Scena scena;
    Cassa cassa({.guasti = {{.modo = 7, .cosa = cosa}}});
    cassa.venduto({});
    commonForKora().IP_ECR = cassa.indirizzo();
    EXPECT_EQ(avviaECR(QStringLiteral("venduto.bin"), Modo::Ricevi, scena.contesto), 0);
    EXPECT_EQ(scena.cartella.leggi(QStringLiteral("venduto.bin")).size(), byte);
  }
}

TEST(GuastoDelFileRicevuto, UnTrasferimentoInterrottoNonToccaIlFileDiPrima) {
  for (const Cosa cosa : {Cosa::TaglioPrima, Cosa::TaglioDentro, Cosa::Spazzatura, Cosa::Codice}) {
    const AttesaBreve attesa;
    Scena scena;
    Cassa cassa({.guasti = {{.modo = 7, .cosa = cosa}}});
    cassa.venduto({});
    scena.cartella.scrivi(QStringLiteral("venduto.bin"), "di ieri");
    commonForKora().IP_ECR = cassa.indirizzo();
    EXPECT_EQ(avviaECR(QStringLiteral("venduto.bin"), Modo::Ricevi, scena.contesto), 1);
    EXPECT_EQ(scena.riquadri().size(), 1U);
    EXPECT_EQ(scena.cartella.leggi(QStringLiteral("venduto.bin")), "di ieri") << nomeDi(cosa);
  }
}
