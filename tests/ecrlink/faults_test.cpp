#include <gtest/gtest.h>

#include "ecrlink/link_scene.h"

using namespace ecrlink;
using ecrsim::FaultKind;

namespace {

constexpr std::int16_t kCodice = 16;

struct Caso {
  Modo modo;
  FaultKind cosa;
};

std::string nomeDelCaso(const testing::TestParamInfo<Caso>& info) {
  return faultName(static_cast<int>(info.param.modo), info.param.cosa);
}
void PrintTo(const Caso& caso, std::ostream* uscita) {
  *uscita << nomeDelCaso({caso, 0});
}

std::vector<Caso> casi(std::initializer_list<Modo> modi) {
  std::vector<Caso> tutti;
  for (const Modo modo : modi)
    for (const FaultKind cosa :
         {FaultKind::Code, FaultKind::Silence, FaultKind::CutBefore, FaultKind::CutWithin,
          FaultKind::CutAfter, FaultKind::ShortFile, FaultKind::LongFile, FaultKind::Garbage})
      tutti.push_back({modo, cosa});
  return tutti;
}

/// The library's message for a fault; empty where the exchange as such goes well.
QString messaggioDi(const Caso& caso) {
  switch (caso.cosa) {
    case FaultKind::Code:
      return QStringLiteral("Errore nella memoria della cassa");
    case FaultKind::Silence:
      return QStringLiteral("Tempo scaduto, la cassa non risponde");
    case FaultKind::CutBefore:
    case FaultKind::CutWithin:
    case FaultKind::CutAfter:
      return QStringLiteral("Collegamento con la cassa interrotto");
    case FaultKind::Garbage:
      return QStringLiteral("Risposta della cassa non riconosciuta");
    // Of key sequences alone.
    case FaultKind::Noise:
    case FaultKind::CutHead:
    case FaultKind::CutMarker:
      break;
    case FaultKind::ShortFile:
    case FaultKind::LongFile:
      return caso.modo == Modo::Invia ? QStringLiteral("Lunghezza del file non accettata dalla cassa")
                                      : QString();
  }
  return {};
}

std::vector<Box> riquadriDi(const Caso& caso) {
  const QString messaggio = messaggioDi(caso);
  return messaggio.isEmpty() ? std::vector<Box>() : std::vector{communicationError(messaggio)};
}

QString fileDi(Modo modo) {
  if (modo == Modo::Invia) return QStringLiteral("iva.bin");
  return modo == Modo::Ricevi ? QStringLiteral("venduto.bin") : QString();
}

struct Guasto : testing::TestWithParam<Caso> {
  ShortTimeouts prevista;
  ProgramFixture scena;
  TestTill cassa;
  LinkScreen schermo{scena.contesto};

  void rompi() {
    cassa->faults({{.mode = static_cast<int>(GetParam().modo), .what = GetParam().cosa, .code = kCodice}});
  }
  std::vector<Box> connetti() {
    schermo.typeAddress(cassa.address());
    schermo.click("CmdInviaModECR");
    return scena.takeBoxes();
  }
};

class GuastoInConnessione : public Guasto {};
class GuastoInTrasferimento : public Guasto {};

}  // namespace

TEST_P(GuastoInConnessione, SiDiceELoSchermoFinisceNelSuoStato) {
  rompi();
  std::vector<Box> previsti = riquadriDi(GetParam());
  // A reply cut short has lost its state; one with a tail has it still.
  const bool senzaStato = GetParam().modo == Modo::EcrInfo && GetParam().cosa == FaultKind::ShortFile;
  if (senzaStato)
    previsti = {criticalBox(QStringLiteral(
        "Funzione non disponibile! Prego porre la cassa nello stato di IDLE o PROGRAMMAZIONE"))};
  EXPECT_EQ(connetti(), previsti);
  const bool infoFallita = GetParam().modo == Modo::EcrInfo && !previsti.empty();
  EXPECT_EQ(stateOf(schermo), senzaStato ? (LinkState{false, true, QString()})
                                         : (LinkState{true, infoFallita, cassa.address()}));
}

TEST_P(GuastoInTrasferimento, UnMessaggioSoloELaConnessioneSuccessivaRimetteInOrdine) {
  // The opening call stands in front of every transfer: any will do.
  const Modo modo = GetParam().modo == Modo::ApriTrasferimento ? Modo::AzzeraVenduto : GetParam().modo;
  cassa.sales({{.slot = 3, .amount = 100, .pieces = 1}});
  scena.folder.write(QStringLiteral("iva.bin"), QByteArray(233, '\0'));
  ASSERT_EQ(connetti(), std::vector<Box>());
  rompi();
  const std::vector<Box> previsti = riquadriDi(GetParam());
  EXPECT_EQ(avviaECR(fileDi(modo), modo, scena.contesto), previsti.empty() ? 0 : 1);
  EXPECT_EQ(scena.takeBoxes(), previsti);
  EXPECT_EQ(stateOf(schermo), (LinkState{true, false, cassa.address()}));
  cassa->faults({});
  LinkScreen nuovo(scena.contesto);
  nuovo.typeAddress(cassa.address());
  nuovo.click("CmdInviaModECR");
  EXPECT_EQ(avviaECR(fileDi(modo), modo, scena.contesto), 0);
  EXPECT_EQ(scena.takeBoxes(), std::vector<Box>());
}

INSTANTIATE_TEST_SUITE_P(Modi, GuastoInConnessione,
                         testing::ValuesIn(casi({Modo::EcrInfo, Modo::ChiudiTrasferimento})), nomeDelCaso);
INSTANTIATE_TEST_SUITE_P(Modi, GuastoInTrasferimento,
                         testing::ValuesIn(casi({Modo::ApriTrasferimento, Modo::AzzeraVenduto, Modo::Invia,
                                                 Modo::Ricevi, Modo::ChiusuraFiscale})),
                         nomeDelCaso);

TEST(GuastoDelFileRicevuto, CortoOLungoArrivaComeLaCassaLoManda) {
  for (const auto& [cosa, byte] :
       {std::pair{FaultKind::ShortFile, 30000}, std::pair{FaultKind::LongFile, 60100}}) {
    ProgramFixture scena;
    TestTill cassa({.faults = {{.mode = 7, .what = cosa}}});
    cassa.sales({});
    commonForKora().IP_ECR = cassa.address();
    EXPECT_EQ(avviaECR(QStringLiteral("venduto.bin"), Modo::Ricevi, scena.contesto), 0);
    EXPECT_EQ(scena.folder.read(QStringLiteral("venduto.bin")).size(), byte);
  }
}

TEST(GuastoDelFileRicevuto, UnTrasferimentoInterrottoNonToccaIlFileDiPrima) {
  for (const FaultKind cosa :
       {FaultKind::CutBefore, FaultKind::CutWithin, FaultKind::Garbage, FaultKind::Code}) {
    const ShortTimeouts prevista;
    ProgramFixture scena;
    TestTill cassa({.faults = {{.mode = 7, .what = cosa}}});
    cassa.sales({});
    scena.folder.write(QStringLiteral("venduto.bin"), "di ieri");
    commonForKora().IP_ECR = cassa.address();
    EXPECT_EQ(avviaECR(QStringLiteral("venduto.bin"), Modo::Ricevi, scena.contesto), 1);
    EXPECT_EQ(scena.takeBoxes().size(), 1U);
    EXPECT_EQ(scena.folder.read(QStringLiteral("venduto.bin")), "di ieri") << faultName(7, cosa);
  }
}
