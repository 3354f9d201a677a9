// Exceptions of the language that come out of the communications library, or out of a transfer's own steps.

#include <gmock/gmock.h>

#include <QFile>
#include <QLibrary>
#include <new>

#include "ecrlink/file_channel.h"
#include "ecrlink/link_scene.h"
#include "ecrlink/transfer_lock.h"

using namespace ecrlink;

namespace {

using testing::ElementsAre;

struct Caso {
  int cosa;
  const char* testo;
};
void PrintTo(const Caso& caso, std::ostream* uscita) {
  *uscita << caso.testo;
}

class EccezioneDellaLibreria : public testing::TestWithParam<Caso> {
 protected:
  EccezioneDellaLibreria() : libreria_(QStringLiteral(THROWING_LIBRARY "/libecrcom.so")) {
    EXPECT_TRUE(libreria_.load()) << libreria_.errorString().toStdString();
    lancia(-1);
    commonForKora().IP_ECR = QStringLiteral("127.9.9.9");
  }
  void lancia(int modo) {
    reinterpret_cast<void (*)(int, int)>(libreria_.resolve("lancia"))(modo, GetParam().cosa);
  }
  static QString testo() { return QString::fromUtf8(GetParam().testo); }
  static Box inAvviaECR() {
    return plainBox(QStringLiteral("Error 51 (") + testo() + QStringLiteral(") nella procedura avviaECR"));
  }

  QLibrary libreria_;
  ProgramFixture scena_{QStringLiteral(THROWING_LIBRARY)};
};

TEST_P(EccezioneDellaLibreria, InAvviaECRFinisceComeOgniErrore) {
  for (const Modo modo : {Modo::ApriTrasferimento, Modo::AzzeraVenduto, Modo::ChiudiTrasferimento}) {
    lancia(static_cast<int>(modo));
    EXPECT_EQ(avviaECR({}, Modo::AzzeraVenduto, scena_.contesto), 1);
    EXPECT_THAT(scena_.takeBoxes(), ElementsAre(inAvviaECR()));
  }
  lancia(-1);
  EXPECT_EQ(avviaECR({}, Modo::AzzeraVenduto, scena_.contesto), 0);
}

TEST_P(EccezioneDellaLibreria, InUnInvioSiDiceELaCartellaETornaLibera) {
  lancia(static_cast<int>(Modo::Invia));
  EXPECT_EQ(SendPRGTo_ECR(std::vector<std::uint8_t>(233), QStringLiteral("iva.bin"), scena_.contesto), 1);
  EXPECT_THAT(
      scena_.takeBoxes(),
      ElementsAre(inAvviaECR(), plainBox(QStringLiteral("Fallita operazione trasferimento iva.bin"))));
  EXPECT_NO_THROW(ScambioEsclusivo());
}

TEST_P(EccezioneDellaLibreria, InUnaRicezioneSiDiceELaCartellaETornaLibera) {
  lancia(static_cast<int>(Modo::Ricevi));
  std::vector<std::uint8_t> immagine(6, 0xA5);
  EXPECT_EQ(RiceviFile(immagine, QStringLiteral("iva.bin"), Precedente::Rimosso, scena_.contesto),
            std::nullopt);
  EXPECT_THAT(scena_.takeBoxes(), ElementsAre(inAvviaECR()));
  EXPECT_EQ(immagine, std::vector<std::uint8_t>(6, 0xA5));
  EXPECT_NO_THROW(ScambioEsclusivo());
}

TEST_P(EccezioneDellaLibreria, InConnettiRiaccendeConnettiEToglieLIndirizzo) {
  scena_.network.echoStatus = 0;
  for (const Modo modo : {Modo::ChiudiTrasferimento, Modo::EcrInfo}) {
    LinkScreen schermo(scena_.contesto);
    lancia(static_cast<int>(modo));
    schermo.typeAddress(QStringLiteral("127.9.9.9"));
    schermo.click("CmdInviaModECR");
    EXPECT_THAT(scena_.takeBoxes(), ElementsAre(criticalBox(QStringLiteral("Errore 51 - ") + testo())));
    EXPECT_EQ(stateOf(schermo), (LinkState{false, true, QString()}));
    EXPECT_TRUE(schermo.hasFocus("CmdInviaModECR"));
    EXPECT_TRUE(schermo.enabled("Cmd_Esci"));
    lancia(-1);
    schermo.click("CmdInviaModECR");
    EXPECT_EQ(stateOf(schermo), (LinkState{true, false, QStringLiteral("127.9.9.9")}));
  }
}

INSTANTIATE_TEST_SUITE_P(Tutte, EccezioneDellaLibreria,
                         testing::Values(Caso{0, "std::bad_alloc"}, Caso{1, "guasto"},
                                         Caso{2, "Errore interno"}));

/// A screen whose transfer a test writes.
class SchermoDiProva : public LinkScreen {
 public:
  using FinestraLink::abilita;
  using FinestraLink::avvia;
  using LinkScreen::LinkScreen;
};

TEST(TrasferimentoGuasto, UnEccezioneDelLinguaggioSiDiceERiaccendeLaSolaUscita) {
  ProgramFixture scena;
  SchermoDiProva schermo(scena.contesto);
  TestTill cassa;
  schermo.typeAddress(cassa.address());
  schermo.click("CmdInviaModECR");
  ASSERT_EQ(stateOf(schermo), (LinkState{true, false, cassa.address()}));
  schermo.avvia([&]() -> bool {
    schermo.abilita(false, false);
    throw std::bad_alloc();
  });
  EXPECT_THAT(
      scena.takeBoxes(),
      ElementsAre(plainBox(QStringLiteral("Error 51 (std::bad_alloc) in procedure Cmd_Avvia_Click of Modulo "
                                          "SchermoLink"))));
  EXPECT_EQ(stateOf(schermo), (LinkState{false, false, cassa.address()}));
  EXPECT_TRUE(schermo.enabled("Cmd_Esci"));
  EXPECT_TRUE(schermo.hasFocus("Cmd_Esci"));
  EXPECT_TRUE(schermo.isVisible());
}

}  // namespace
