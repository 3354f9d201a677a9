// What every link screen offers around its transfer: keys, hints, the foot, the colour of the state.

#include "ecrlink/link_window.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "ecrlink/link_scene.h"
#include "ecrlink/painted_steps.h"
#include "ecrlink/till_step.h"

using namespace ecrlink;

namespace {

using Kind = OutcomeBar::Kind;

/// A screen whose work a test writes.
class SchermoAlLavoro : public LinkScreen {
 public:
  using LinkScreen::LinkScreen;
  std::function<bool()> lavoro = [] { return false; };
  QString sospeso;
  int avvii = 0;
  int uscite = 0;

  void prepara() {
    QObject::connect(&dynamic_cast<QPushButton&>(control("Cmd_Esci")), &QPushButton::clicked,
                     [this] { ++uscite; });
    QObject::connect(&dynamic_cast<QPushButton&>(control("Cmd_Avvia")), &QPushButton::clicked, [this] {
      ++avvii;
      avvia(lavoro);
    });
  }
  using FinestraLink::abilita;
  using FinestraLink::racconta;

 protected:
  QString avvertenza() const override { return sospeso; }
};

struct FinestraDelLink : testing::Test {
  ProgramFixture scena;
  TestTill cassa;
  SchermoAlLavoro schermo{scena.contesto};

  FinestraDelLink() { schermo.prepara(); }
  void connetti() { connetti(cassa.address()); }
  void connetti(const QString& indirizzo) {
    schermo.typeAddress(indirizzo);
    schermo.click("CmdInviaModECR");
  }
  void premi(Qt::Key tasto) { QTest::keyClick(schermo.focusWidget(), tasto); }
  QString suggerimento(const char* comando) { return schermo.control(comando).toolTip(); }
  QString colore() { return schermo.control("vkTextBoxECR").property("badge").toString(); }
  void attendiPiede(Kind genere, const QString& testo) {
    EXPECT_EQ(schermo.foot().text(), testo);
    EXPECT_EQ(schermo.foot().kind(), genere);
  }
};

}  // namespace

// Keys.

TEST_F(FinestraDelLink, F9AvviaSoloSeAvviaEAcceso) {
  premi(Qt::Key_F9);
  EXPECT_EQ(schermo.avvii, 0);
  connetti();
  premi(Qt::Key_F9);
  EXPECT_EQ(schermo.avvii, 1);
  schermo.control("vkTextBoxIP_ECR").setFocus();
  premi(Qt::Key_F9);
  EXPECT_EQ(schermo.avvii, 2);
}

TEST_F(FinestraDelLink, F9TenutoPremutoAvviaUnaVoltaSola) {
  connetti();
  premi(Qt::Key_F9);
  for (int i = 0; i < 3; ++i) {
    QKeyEvent ripetuto(QEvent::KeyPress, Qt::Key_F9, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(schermo.focusWidget(), &ripetuto);
  }
  EXPECT_EQ(schermo.avvii, 1);
}

TEST_F(FinestraDelLink, DopoLaConnessioneInvioNonEsceENonAvvia) {
  connetti();
  ASSERT_TRUE(schermo.hasFocus("Cmd_Esci"));
  for (const auto tasto : {Qt::Key_Return, Qt::Key_Enter}) premi(tasto);
  EXPECT_EQ(schermo.uscite, 0);
  EXPECT_EQ(schermo.avvii, 0);
}

TEST_F(FinestraDelLink, AncheDoveInvioPremeOgniPulsanteAFuocoNonSiEsce) {
  dynamic_cast<QPushButton&>(schermo.control("Cmd_Esci")).setAutoDefault(true);
  connetti();
  ASSERT_TRUE(schermo.hasFocus("Cmd_Esci"));
  premi(Qt::Key_Return);
  EXPECT_EQ(schermo.uscite, 0);
}

TEST_F(FinestraDelLink, InvioAltroveNonPremeIlComandoPredefinito) {
  connetti();
  auto& avvia = dynamic_cast<QPushButton&>(schermo.control("Cmd_Avvia"));
  avvia.setDefault(true);
  schermo.control("vkTextBoxECR").setFocus();
  premi(Qt::Key_Return);
  EXPECT_EQ(schermo.avvii, 0);
  EXPECT_EQ(schermo.uscite, 0);
}

TEST_F(FinestraDelLink, InvioSulComandoAFuocoLoPreme) {
  connetti();
  schermo.control("Cmd_Avvia").setFocus();
  premi(Qt::Key_Return);
  EXPECT_EQ(schermo.avvii, 1);
}

TEST_F(FinestraDelLink, InvioSuConnettiConnetteENonFaAltro) {
  schermo.typeAddress(cassa.address());
  schermo.control("CmdInviaModECR").setFocus();
  premi(Qt::Key_Return);
  EXPECT_EQ(callsOf(cassa), (QStringList{QStringLiteral("2:"), QStringLiteral("0:")}));
  EXPECT_EQ(schermo.avvii, 0);
}

TEST_F(FinestraDelLink, BarraSpazioSuEsciEsce) {
  scena.screens.registra(QStringLiteral("SchermoLink"), [this](Contesto&) {
    auto* altro = new SchermoAlLavoro(scena.contesto);
    return altro;
  });
  QWidget& altro = scena.screens.mostra(QStringLiteral("SchermoLink"), scena.contesto);
  QTest::keyClick(altro.findChild<QPushButton*>(QStringLiteral("Cmd_Esci")), Qt::Key_Space);
  EXPECT_EQ(scena.screens.trova(QStringLiteral("SchermoLink")), nullptr);
}

TEST_F(FinestraDelLink, EscChiudeSoloSeEsciEAcceso) {
  schermo.abilita(false, false);
  schermo.control("vkTextBoxIP_ECR").setFocus();
  premi(Qt::Key_Escape);
  EXPECT_TRUE(schermo.isVisible());
  schermo.abilita(false, true);
  premi(Qt::Key_Escape);
  EXPECT_FALSE(schermo.isVisible());
}

TEST_F(FinestraDelLink, EscRiportaAlComandoDaCuiSiEPartiti) {
  QLineEdit* partenza = nullptr;
  scena.screens.registra(QStringLiteral("Casa"), [&](Contesto&) {
    auto* casa = new QWidget;
    new QPushButton(QStringLiteral("altro"), casa);
    partenza = new QLineEdit(casa);
    return casa;
  });
  QWidget& casa = scena.screens.mostra(QStringLiteral("Casa"), scena.contesto);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&casa));
  partenza->setFocus();
  schermo.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&schermo));
  premi(Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitForWindowActive(&casa));
  EXPECT_TRUE(partenza->hasFocus());
}

// Hints.

TEST_F(FinestraDelLink, IComandiAccesiDiconoACheServonoEConQualeTasto) {
  EXPECT_EQ(suggerimento("CmdInviaModECR"),
            QStringLiteral("Si collega alla cassa di questo indirizzo (Invio nella casella)"));
  EXPECT_EQ(suggerimento("Cmd_Esci"), QStringLiteral("Torna alla casa (Esc)"));
  connetti();
  EXPECT_EQ(suggerimento("Cmd_Avvia"), QStringLiteral("Avvia la prova (F9)"));
}

TEST_F(FinestraDelLink, QuelliSpentiDiconoPerche) {
  EXPECT_EQ(suggerimento("Cmd_Avvia"), QStringLiteral("Prima collegarsi alla cassa con Connetti"));
  connetti();
  EXPECT_EQ(suggerimento("CmdInviaModECR"),
            QStringLiteral("La cassa è già collegata: per ricollegarsi uscire e rientrare"));
  schermo.abilita(false, false);
  EXPECT_EQ(suggerimento("Cmd_Avvia"),
            QStringLiteral("L'ultimo comando non è riuscito: uscire e rientrare per ripeterlo"));
  EXPECT_EQ(suggerimento("Cmd_Esci"), QStringLiteral("Attendere che la cassa abbia finito"));
}

TEST_F(FinestraDelLink, DopoUnaConnessioneFallitaAvviaChiedeDiNuovoDiCollegarsi) {
  cassa->faults({{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 16}});
  connetti();
  EXPECT_EQ(suggerimento("Cmd_Avvia"), QStringLiteral("Avvia la prova (F9)"));
  connetti(QStringLiteral("10.0.0"));
  EXPECT_EQ(suggerimento("Cmd_Avvia"), QStringLiteral("Prima collegarsi alla cassa con Connetti"));
  EXPECT_EQ(scena.takeBoxes().size(), 2U);
}

// The foot.

TEST_F(FinestraDelLink, LaConnessioneRiuscitaSiDiceConLoStato) {
  connetti();
  attendiPiede(Kind::Done, QStringLiteral("Collegato a %1: IDLE").arg(cassa.address()));
}

TEST_F(FinestraDelLink, ConLaConnessioneTornaCioCheNonSiDeveDimenticare) {
  schermo.sospeso = QStringLiteral("Manca una conferma.");
  cassa->state('P');
  connetti();
  attendiPiede(Kind::Warning,
               QStringLiteral("Collegato a %1: PROGRAMMAZIONE. Manca una conferma.").arg(cassa.address()));
}

TEST_F(FinestraDelLink, LaConnessioneFallitaSiDiceColSuoMessaggio) {
  cassa->faults({{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 16}});
  connetti();
  EXPECT_EQ(scena.takeBoxes().size(), 1U);
  attendiPiede(Kind::Failed,
               QStringLiteral("Errore nella comunicazione con ECR: Errore nella memoria della cassa"));
}

TEST_F(FinestraDelLink, NelloStatoSbagliatoNonSiDiceCollegato) {
  cassa->state('V');
  connetti();
  EXPECT_EQ(scena.takeBoxes().size(), 1U);
  attendiPiede(
      Kind::Failed,
      QStringLiteral("Funzione non disponibile! Prego porre la cassa nello stato di IDLE o PROGRAMMAZIONE"));
}

TEST_F(FinestraDelLink, IPassiDiUnComandoSiLeggonoUnoPerUnoEPoiRestaLEsito) {
  connetti();
  const PaintedSteps dipinti(schermo);
  scena.folder.write(QStringLiteral("iva.bin"), QByteArray(233, '\0'));
  schermo.lavoro = [&] {
    avviaECR(QStringLiteral("iva.bin"), Modo::Invia, scena.contesto);
    EXPECT_EQ(schermo.foot().text(), QString());
    schermo.racconta(Kind::Done, QStringLiteral("Fatto"));
    return false;
  };
  premi(Qt::Key_F9);
  EXPECT_EQ(dipinti.steps(), (QStringList{QStringLiteral("Apertura del trasferimento … (fino a 5 s)"),
                                          QStringLiteral("Invio di iva.bin … (fino a 5 s)"),
                                          QStringLiteral("Chiusura del trasferimento … (fino a 5 s)")}));
  attendiPiede(Kind::Done, QStringLiteral("Fatto"));
}

TEST(ParoleDelModo, IFileCheLaPersonaConosceHannoIlLoroNome) {
  EXPECT_EQ(paroleDelModo(Modo::Invia, QStringLiteral("clienti.bin")), QStringLiteral("Invio dei clienti"));
  EXPECT_EQ(paroleDelModo(Modo::Invia, QStringLiteral("bitmap.bin")), QStringLiteral("Invio di bitmap.bin"));
}

TEST_F(FinestraDelLink, OgniComandoAllaCassaHaLeSueParole) {
  connetti();
  const QString fino = QStringLiteral(" … (fino a 5 s)");
  struct Caso {
    Modo modo;
    const char* file;
    const char* parole;
  };
  for (const Caso& caso : {Caso{Modo::AzzeraVenduto, "", "Azzeramento del venduto"},
                           Caso{Modo::AzzeraFatture, "", "Azzeramento delle fatture"},
                           Caso{Modo::AzzeraProgrammazione, "", "Azzeramento della programmazione"},
                           Caso{Modo::Ricevi, "venduto.bin", "Richiesta del venduto"},
                           Caso{Modo::Ricevi, "fatture.bin", "Richiesta delle fatture"},
                           Caso{Modo::Ricevi, "clienti.bin", "Richiesta dei clienti"},
                           Caso{Modo::ChiusuraFiscale, "", "Chiusura fiscale"}}) {
    const PaintedSteps dipinti(schermo);
    schermo.lavoro = [&] {
      avviaECR(QString::fromLatin1(caso.file), caso.modo, scena.contesto);
      return false;
    };
    premi(Qt::Key_F9);
    scena.takeBoxes();
    EXPECT_TRUE(dipinti.steps().contains(QString::fromLatin1(caso.parole) + fino)) << caso.parole;
  }
}

TEST_F(FinestraDelLink, FuoriDaUnComandoLeChiamateNonScrivonoNulla) {
  connetti();
  const QString prima = schermo.foot().text();
  const PaintedSteps dipinti(schermo);
  EXPECT_EQ(avviaECR(QString(), Modo::AzzeraVenduto, scena.contesto), 0);
  EXPECT_EQ(schermo.foot().text(), prima);
  EXPECT_EQ(dipinti.steps(), QStringList());
}

TEST_F(FinestraDelLink, UnIndirizzoInterminabileNonAllargaLaFinestra) {
  const int larghezza = schermo.minimumSizeHint().width();
  int durante = 0;
  PaintedSteps dipinti(schermo);
  dipinti.onStep = [&] { durante = schermo.minimumSizeHint().width(); };
  scena.network.echoStatus = 11010;
  connetti(QStringLiteral("1.2.3.") + QString(500, u'x'));
  EXPECT_EQ(scena.takeBoxes().size(), 1U);
  ASSERT_FALSE(dipinti.steps().isEmpty());
  EXPECT_EQ(dipinti.steps().first(),
            QStringLiteral("Connessione a 1.2.3.xxxxxxxxxxxxxxxxxx… … (fino a 5 s)"));
  EXPECT_LE(durante, larghezza);
}

TEST_F(FinestraDelLink, UnTestoDiPiuRigheAlPiedeSiLeggeIntero) {
  schermo.resize(schermo.minimumSizeHint());
  QCoreApplication::processEvents();
  const int bassa = schermo.height();
  schermo.racconta(Kind::Warning, QStringLiteral("Le stesse vendite risultano due volte. ").repeated(20));
  QCoreApplication::processEvents();
  EXPECT_GT(schermo.height(), bassa);
  EXPECT_GE(schermo.foot().height(), schermo.foot().heightForWidth(schermo.foot().width()));
}

// The colour of the state.

TEST_F(FinestraDelLink, DopoUnaConnessioneFallitaLoStatoHaIlColoreDelGuasto) {
  for (const char* indirizzo : {"10.0.0", "300.0.0.1"}) {
    connetti(QString::fromLatin1(indirizzo));
    EXPECT_EQ(colore(), QStringLiteral("fault")) << indirizzo;
  }
  cassa->faults({{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 16}});
  connetti();
  EXPECT_EQ(colore(), QStringLiteral("fault"));
  EXPECT_EQ(scena.takeBoxes().size(), 3U);
  cassa->faults({});
  connetti();
  EXPECT_EQ(colore(), QStringLiteral("ready"));
}

TEST_F(FinestraDelLink, UnComandoFallitoDaIlColoreDelGuastoGiaAlSuoRiquadro) {
  connetti();
  ASSERT_EQ(colore(), QStringLiteral("ready"));
  QString alRiquadro;
  scena.user.onBox = [&](const Box&) { alRiquadro = colore(); };
  schermo.lavoro = [&] { return avviaECR(QStringLiteral("ignoto.bin"), Modo::Ricevi, scena.contesto) == 0; };
  premi(Qt::Key_F9);
  EXPECT_EQ(alRiquadro, QStringLiteral("fault"));
  EXPECT_EQ(colore(), QStringLiteral("fault"));
  EXPECT_EQ(schermo.text("vkTextBoxECR"), QStringLiteral("IDLE"));
  EXPECT_FALSE(schermo.control("vkTextBoxECR").accessibleDescription().isEmpty());
  EXPECT_EQ(scena.takeBoxes().size(), 1U);
}

TEST_F(FinestraDelLink, UnComandoRiuscitoDopoUnGuastoToglieIlColore) {
  cassa->faults({{.mode = 0, .what = ecrsim::FaultKind::Code, .code = 16}});
  connetti();
  ASSERT_EQ(colore(), QStringLiteral("fault"));
  schermo.lavoro = [&] { return avviaECR(QString(), Modo::AzzeraVenduto, scena.contesto) != 0; };
  premi(Qt::Key_F9);
  EXPECT_EQ(colore(), QStringLiteral("neutral"));
  EXPECT_EQ(schermo.control("vkTextBoxECR").accessibleDescription(), QString());
  EXPECT_EQ(scena.takeBoxes().size(), 1U);
}

TEST_F(FinestraDelLink, UnEccezioneInUnComandoDaIlColoreDelGuasto) {
  const QTemporaryDir vuota;
  ProgramFixture senzaLibreria(vuota.path());
  SchermoAlLavoro altro(senzaLibreria.contesto);
  altro.typeAddress(cassa.address());
  altro.click("CmdInviaModECR");
  EXPECT_EQ(senzaLibreria.takeBoxes().size(), 1U);
  EXPECT_EQ(altro.control("vkTextBoxECR").property("badge").toString(), QStringLiteral("fault"));
}

TEST_F(FinestraDelLink, IlGuastoSiVedeAncheSenzaIlColore) {
  auto& stato = dynamic_cast<QLineEdit&>(schermo.control("vkTextBoxECR"));
  const auto segni = [&] {
    int visti = 0;
    for (const QAction* segno : stato.actions()) visti += segno->isVisible() ? 1 : 0;
    return visti;
  };
  EXPECT_EQ(segni(), 0);
  connetti(QStringLiteral("300.0.0.1"));
  EXPECT_EQ(segni(), 1);
  connetti();
  EXPECT_EQ(segni(), 0);
  EXPECT_EQ(scena.takeBoxes().size(), 1U);
}
