#include "editors/Form_GestioneCodiceTastiera.h"

#include <gtest/gtest.h>

#include <QRadioButton>
#include <QTest>

#include "core/state.h"
#include "editors/MDIForm_PRG.h"
#include "editors/chosen_model.h"
#include "editors/guided_editor.h"

namespace {

const QString kSchermo = QStringLiteral("Form_GestioneCodiceTastiera");
const QString kConferma = QStringLiteral("Cmd_Conferma");
const Box kDomanda{QStringLiteral("Si è sicuri della scelta effettuata ?"), Icon::Question,
                   QStringLiteral("Caricamento configurazione"), Buttons::YesNo};
constexpr int kOpzioni = 13;

QString opzione(int indice) {
  return QStringLiteral("vkOptionButtonTipoMacchina_%1").arg(indice);
}

class SceltaECR : public ConfigurationOpen {
 protected:
  SceltaECR() {
    editors::azzeraModelloScelto();
    program.screens.registra<Form_GestioneCodiceTastiera>();
  }
  ~SceltaECR() override { editors::azzeraModelloScelto(); }
  GuidedEditor apri() { return GuidedEditor(program, kSchermo); }
  /// Opens the screen anew, clicks an option and confirms it.
  QString conferma(int indice, Answer risposta = Answer::Yes) {
    program.screens.scarica(kSchermo);
    const GuidedEditor schermo = apri();
    program.user.answers(risposta);
    schermo.click(opzione(indice));
    schermo.click(kConferma);
    expectBoxes(program, {kDomanda});
    return schermo.foot();
  }
};

/// The options that are set.
QList<int> scelte(const GuidedEditor& schermo) {
  QList<int> messe;
  for (int indice = 0; indice < kOpzioni; ++indice)
    if (schermo.control<QRadioButton>(opzione(indice)).isChecked()) messe << indice;
  return messe;
}

std::optional<int> macchina(const GuidedEditor& schermo) {
  return dynamic_cast<const Form_GestioneCodiceTastiera&>(schermo.window()).macchina();
}

}  // namespace

TEST_F(SceltaECR, TrediciMacchineConLeLoroScritte) {
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.window().windowTitle(), t("Scelta ECR"));
  constexpr const char* kScritte[] = {
      "Spica -------------------------> 30 tasti", "Vega -------------------------> 42 tasti",
      "Vega ambulante -------> 42 tasti",          "Rigel ---------------------> 42 tasti",
      "Mira -----------------------> N/A",         "Altair base --------> 52 tasti",
      "Altair plus ---------> 52 tasti",           "Deneb base ---------------> 60 tasti",
      "Deneb fast -----------------> 60 tasti",    "KPR_58mm ---------------> 42 tasti",
      "KPR_58mm ---------------> 30 tasti",        "KPR_80mm ---------------> 42 tasti",
      "KPR_80mm ---------------> 30 tasti"};
  for (int indice = 0; indice < kOpzioni; ++indice)
    EXPECT_EQ(schermo.text(opzione(indice)), t(kScritte[indice])) << indice;
  EXPECT_EQ(schermo.window().findChildren<QRadioButton*>().size(), kOpzioni);
  EXPECT_EQ(schermo.text(kConferma), t("Conferma"));
}

TEST_F(SceltaECR, AccantoAOgniMacchinaSiLeggeLaSuaRiga) {
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.text(t("LabelRighe_0")), t("righe di 24 caratteri"));
  EXPECT_EQ(schermo.text(t("LabelRighe_9")), t("righe di 26 caratteri"));
  EXPECT_EQ(schermo.text(t("LabelRighe_12")), t("righe di 36 caratteri"));
  EXPECT_EQ(schermo.control(opzione(2)).accessibleName(), t("Vega ambulante, 42 tasti"));
  EXPECT_EQ(schermo.control(opzione(4)).accessibleName(), t("Mira, N/A"));
}

TEST_F(SceltaECR, OgniMacchinaDaLaSuaLarghezzaELoDice) {
  struct Attesa {
    int larghezza;
    const char* piede;
  };
  constexpr Attesa kAttese[] = {{24, "Scelta SPICA: 30 tasti, righe di 24 caratteri"},
                                {24, "Scelta VEGA: 42 tasti, righe di 24 caratteri"},
                                {24, "Scelta VEGA AMBULANTE: 42 tasti, righe di 24 caratteri"},
                                {24, "Scelta RIGEL: 42 tasti, righe di 24 caratteri"},
                                {24, "Scelta MIRA: tasti N/A, righe di 24 caratteri"},
                                {24, "Scelta ALTAIR BASE: 52 tasti, righe di 24 caratteri"},
                                {24, "Scelta ALTAIR PLUS: 52 tasti, righe di 24 caratteri"},
                                {24, "Scelta DENEB BASE: 60 tasti, righe di 24 caratteri"},
                                {24, "Scelta DENEB FAST: 60 tasti, righe di 24 caratteri"},
                                {26, "Scelta KPR_58mm: 42 tasti, righe di 26 caratteri"},
                                {26, "Scelta KPR_58mm: 30 tasti, righe di 26 caratteri"},
                                {36, "Scelta KPR_80mm: 42 tasti, righe di 36 caratteri"},
                                {36, "Scelta KPR_80mm: 30 tasti, righe di 36 caratteri"}};
  for (int indice = 0; indice < kOpzioni; ++indice) {
    EXPECT_EQ(conferma(indice), t(kAttese[indice].piede));
    EXPECT_EQ(varGestionePRG().LarghezzaRiga, kAttese[indice].larghezza) << indice;
    EXPECT_EQ(editors::modelloScelto(), indice);
  }
}

TEST_F(SceltaECR, UnNoLasciaTuttoComEra) {
  EXPECT_EQ(conferma(11, Answer::No), t("Non confermata: nessuna macchina scelta"));
  EXPECT_EQ(varGestionePRG().LarghezzaRiga, 0);
  EXPECT_EQ(editors::modelloScelto(), std::nullopt);
  conferma(1);
  EXPECT_EQ(conferma(11, Answer::No), t("Non confermata: la macchina resta VEGA"));
  EXPECT_EQ(varGestionePRG().LarghezzaRiga, 24);
  EXPECT_EQ(editors::modelloScelto(), 1);
}

TEST_F(SceltaECR, SenzaUnaMacchinaNonSiChiedeNulla) {
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.foot(), t("Nessuna macchina scelta"));
  EXPECT_EQ(scelte(schermo), QList<int>());
  EXPECT_EQ(macchina(schermo), std::nullopt);
  schermo.click(kConferma);
  expectBoxes(program, {});
  EXPECT_EQ(schermo.foot(), t("Scegliere prima una macchina dall'elenco, poi Conferma"));
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Warning);
  EXPECT_EQ(schermo.focus(), opzione(0));
  EXPECT_EQ(varGestionePRG().LarghezzaRiga, 0);
}

TEST_F(SceltaECR, IlNumeroDellaMacchinaEQuelloDellOpzioneMessa) {
  const GuidedEditor schermo = apri();
  for (int indice = 0; indice < kOpzioni; ++indice) {
    schermo.click(opzione(indice));
    EXPECT_EQ(scelte(schermo), QList<int>({indice}));
    EXPECT_EQ(macchina(schermo), indice);
  }
}

TEST_F(SceltaECR, SiRiapreConLaMacchinaSceltaPrima) {
  conferma(9);
  program.screens.scarica(kSchermo);
  const GuidedEditor schermo = apri();
  EXPECT_EQ(scelte(schermo), QList<int>({9}));
  EXPECT_EQ(schermo.foot(), t("Scelta KPR_58mm: 42 tasti, righe di 26 caratteri"));
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Plain);
  schermo.window().setFocus();
  EXPECT_EQ(schermo.focus(), opzione(9));
}

TEST_F(SceltaECR, InvioConfermaLOpzioneDoveSiSta) {
  const GuidedEditor schermo = apri();
  schermo.window().setFocus();
  schermo.press(Qt::Key_Down);
  schermo.press(Qt::Key_Down);
  EXPECT_EQ(schermo.focus(), opzione(2));
  program.user.answers(Answer::Yes);
  schermo.press(Qt::Key_Return);
  expectBoxes(program, {kDomanda});
  EXPECT_EQ(editors::modelloScelto(), 2);
}

TEST_F(SceltaECR, InvioSullaPrimaOpzioneLaScegliePure) {
  const GuidedEditor schermo = apri();
  schermo.window().setFocus();
  program.user.answers(Answer::Yes);
  schermo.press(Qt::Key_Enter, Qt::KeypadModifier);
  expectBoxes(program, {kDomanda});
  EXPECT_EQ(scelte(schermo), QList<int>({0}));
  EXPECT_EQ(editors::modelloScelto(), 0);
}

TEST_F(SceltaECR, InvioTenutoPremutoNonRispondeDaSe) {
  const GuidedEditor schermo = apri();
  auto& prima = schermo.control(opzione(0));
  prima.setFocus();
  QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
  QCoreApplication::sendEvent(&prima, &tenuto);
  expectBoxes(program, {});
}

TEST_F(SceltaECR, IlDoppioClicConferma) {
  const GuidedEditor schermo = apri();
  program.user.answers(Answer::Yes);
  schermo.click(opzione(12));
  QTest::mouseDClick(&schermo.control(opzione(12)), Qt::LeftButton);
  expectBoxes(program, {kDomanda});
  EXPECT_EQ(editors::modelloScelto(), 12);
  EXPECT_EQ(varGestionePRG().LarghezzaRiga, 36);
}

TEST_F(SceltaECR, IlTabulatoreVaDallOpzioneAlComando) {
  const GuidedEditor schermo = apri();
  schermo.window().setFocus();
  EXPECT_EQ(schermo.focus(), opzione(0));
  schermo.press(Qt::Key_Tab);
  EXPECT_EQ(schermo.focus(), kConferma);
  schermo.press(Qt::Key_Space);
  EXPECT_EQ(schermo.foot(), t("Scegliere prima una macchina dall'elenco, poi Conferma"));
}

TEST_F(SceltaECR, InPocoPostoLeFrecceScorronoLElenco) {
  const GuidedEditor schermo = apri();
  schermo.window().resize(800, schermo.window().minimumSizeHint().height());
  QCoreApplication::processEvents();
  schermo.window().setFocus();
  for (int passi = 1; passi < kOpzioni; ++passi) schermo.press(Qt::Key_Down);
  EXPECT_EQ(schermo.focus(), opzione(12));
  const auto& ultima = schermo.control(opzione(12));
  EXPECT_EQ(ultima.visibleRegion().boundingRect(), ultima.rect());
}

TEST_F(SceltaECR, SiApreNellaProgrammazioneDalPulsanteTastiera) {
  program.screens.registra<MDIForm_PRG>();
  const GuidedScreen cornice(program, t("MDIForm_PRG"));
  EXPECT_FALSE(cornice.enabled(t("Toolbar1_13")));
  program.user.chooses(varGestionePRG().PathConfigurazione);
  QTest::keyClick(&cornice.window(), Qt::Key_O, Qt::ControlModifier);
  ASSERT_TRUE(cornice.enabled(t("Toolbar1_13")));
  cornice.control(t("Toolbar1_13")).setFocus();
  cornice.key(Qt::Key_Space);
  ASSERT_NE(program.screens.trova(kSchermo), nullptr);
  EXPECT_EQ(cornice.text(t("StatusBar1_2")), t("Gestione Tastiera"));
  EXPECT_EQ(cornice.focus(), opzione(0));
  cornice.key(Qt::Key_Escape);
  EXPECT_EQ(program.screens.trova(kSchermo), nullptr);
  EXPECT_TRUE(cornice.alive());
}

TEST_F(SceltaECR, ADodiciPuntiSta) {
  expectFitsAtTwelvePoints(apri());
}
