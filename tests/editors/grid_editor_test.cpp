#include "editors/grid_editor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTest>
#include <QVBoxLayout>

#include "core/state.h"
#include "editors/Form_IVA.h"
#include "editors/Form_Reparti.h"
#include "editors/changes.h"
#include "editors/guided_editor.h"

namespace {

const QString kSchermo = QStringLiteral("Form_Reparti");
const QString kSalva = QStringLiteral("Cmd_Modifica");
const QString kAnnulla = QStringLiteral("Cmd_Reset");
const Box kDomanda{QStringLiteral("Attenzione sono stati modificati dei parametri di configurazione: salvare "
                                  "prima di proseguire ?"),
                   Icon::Question, QStringLiteral("ATTENZIONE"), Buttons::YesNo};

// First byte of the departments in the file.
constexpr qsizetype kReparto1 = 528;

enum Colonna { kNumero, kDesc, kPrz, kIva, kMin, kMax, kTipo, kSconto, kSingola, kTallon };
constexpr int kUltimaRiga = 80;

/// The mechanism of all grids, on the one with most columns.
class EditorInGriglia : public ConfigurationOpen {
 protected:
  EditorInGriglia() {
    program.screens.registra<Form_Reparti>();
    program.screens.registra<Form_IVA>();
  }
  GuidedEditor apri() { return GuidedEditor(program, kSchermo); }
  static editors::Editor& editor(const GuidedEditor& schermo) {
    return dynamic_cast<editors::Editor&>(schermo.window());
  }
  static void expectSopra(const GuidedEditor& schermo, int riga, int colonna) {
    EXPECT_EQ(schermo.box().objectName(), QStringLiteral("casella_%1").arg(colonna));
    EXPECT_EQ(schermo.box().geometry(), schermo.place(riga, colonna));
    EXPECT_EQ(schermo.current(), QStringLiteral("%1,%2").arg(riga).arg(colonna));
  }
};

}  // namespace

// The box and its cell.

TEST_F(EditorInGriglia, AllAperturaNessunaCasellaEIlFuocoEDellaGriglia) {
  const GuidedEditor schermo = apri();
  EXPECT_EQ(schermo.boxes(), QStringList());
  EXPECT_EQ(schermo.focus(), t("MSFlexGridReparti"));
  EXPECT_EQ(schermo.current(), t("1,1"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
}

TEST_F(EditorInGriglia, UnClicMetteLaCasellaEsattamenteSopraLaCella) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(4, kPrz);
  expectSopra(schermo, 4, kPrz);
  EXPECT_EQ(schermo.box().text(), t("0,00"));
  EXPECT_EQ(schermo.box().selectedText(), t("0,00"));
  EXPECT_EQ(schermo.focus(), t("casella_2"));
  EXPECT_EQ(schermo.box().accessibleName(), t("PREZZO, riga 4"));
}

TEST_F(EditorInGriglia, AncheUnClicSullaCellaDoveLaGrigliaStaGia) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, 1);
  expectSopra(schermo, 1, 1);
}

TEST_F(EditorInGriglia, CENeUnaAllaVolta) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(4, kPrz);
  schermo.clickCell(2, kTipo);
  EXPECT_EQ(schermo.boxes(), QStringList{t("casella_6")});
  expectSopra(schermo, 2, kTipo);
  EXPECT_EQ(schermo.box().text(), t("S"));
}

TEST_F(EditorInGriglia, F2EInvioSullaGrigliaMettonoLaCasella) {
  const GuidedEditor schermo = apri();
  schermo.press(Qt::Key_F2);
  expectSopra(schermo, 1, 1);
  schermo.click(kAnnulla);
  EXPECT_EQ(schermo.boxes(), QStringList());
  schermo.grid().setFocus();
  schermo.press(Qt::Key_Return);
  expectSopra(schermo, 1, 1);
}

TEST_F(EditorInGriglia, UnaFrecciaSullaGrigliaMetteLaCasellaSullaCellaVicina) {
  const GuidedEditor schermo = apri();
  schermo.press(Qt::Key_Down);
  expectSopra(schermo, 2, 1);
}

TEST_F(EditorInGriglia, LaCasellaSegueLaSuaCellaScorrendo) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(4, kPrz);
  schermo.grid().verticalScrollBar()->setValue(2);
  ASSERT_EQ(schermo.grid().verticalScrollBar()->value(), 2);
  expectSopra(schermo, 4, kPrz);
  schermo.grid().setColumnWidth(kDesc, 900);
  schermo.grid().horizontalScrollBar()->setValue(40);
  ASSERT_EQ(schermo.grid().horizontalScrollBar()->value(), 40);
  expectSopra(schermo, 4, kPrz);
}

TEST_F(EditorInGriglia, ScrivereInUnaCellaScorsaViaLaRiportaInVista) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kDesc);
  schermo.grid().verticalScrollBar()->setValue(60);
  ASSERT_FALSE(schermo.grid().viewport()->rect().intersects(schermo.box().geometry()));
  schermo.type(t("B"));
  expectSopra(schermo, 1, kDesc);
  EXPECT_TRUE(schermo.grid().viewport()->rect().contains(schermo.box().geometry()));
}

TEST_F(EditorInGriglia, LaCasellaSegueLaSuaCellaQuandoCambianoLarghezzeFinestraECarattere) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(4, kPrz);
  const QRect prima = schermo.box().geometry();
  schermo.grid().setColumnWidth(kDesc, schermo.grid().columnWidth(kDesc) + 30);
  QCoreApplication::processEvents();
  EXPECT_NE(schermo.box().geometry(), prima);
  expectSopra(schermo, 4, kPrz);
  schermo.window().resize(1020, 700);
  QCoreApplication::processEvents();
  expectSopra(schermo, 4, kPrz);
  QFont grande = schermo.window().font();
  grande.setPointSize(12);
  schermo.window().setFont(grande);
  QCoreApplication::processEvents();
  EXPECT_GT(schermo.box().height(), prima.height());
  expectSopra(schermo, 4, kPrz);
}

TEST_F(EditorInGriglia, UnClicSulNumeroDellaRigaPortaNellaSuaPrimaCella) {
  const GuidedEditor schermo = apri();
  auto& fisse = schermo.control<QTableView>("colonneFisse");
  QTest::mouseClick(fisse.viewport(), Qt::LeftButton, {},
                    fisse.visualRect(fisse.model()->index(4, kNumero)).center());
  expectSopra(schermo, 5, kDesc);
}

// Moving.

TEST_F(EditorInGriglia, LaFrecciaDestraInFondoAlTestoVaUnaColonnaADestra) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(3, kPrz);
  schermo.press(Qt::Key_Home);
  schermo.press(Qt::Key_Right);
  EXPECT_EQ(schermo.current(), t("3,2"));
  EXPECT_EQ(schermo.box().cursorPosition(), 1);
  schermo.press(Qt::Key_End);
  schermo.press(Qt::Key_Right);
  expectSopra(schermo, 3, kIva);
}

TEST_F(EditorInGriglia, LaFrecciaDestraNellUltimaColonnaResta) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(3, kTallon);
  schermo.press(Qt::Key_End);
  schermo.press(Qt::Key_Right);
  expectSopra(schermo, 3, kTallon);
}

TEST_F(EditorInGriglia, LaFrecciaSinistraInCimaAlTestoVaUnaColonnaASinistra) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(3, kPrz);
  schermo.press(Qt::Key_End);
  schermo.press(Qt::Key_Left);
  EXPECT_EQ(schermo.current(), t("3,2"));
  schermo.press(Qt::Key_Home);
  schermo.press(Qt::Key_Left);
  expectSopra(schermo, 3, kDesc);
}

TEST_F(EditorInGriglia, LaFrecciaSinistraNellaPrimaColonnaRestaENonVaSulNumero) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(3, kDesc);
  schermo.press(Qt::Key_Left);
  expectSopra(schermo, 3, kDesc);
}

TEST_F(EditorInGriglia, ColTestoTuttoSceltoLeDueFrecceCambianoCella) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(3, kPrz);
  schermo.press(Qt::Key_Right);
  expectSopra(schermo, 3, kIva);
  schermo.press(Qt::Key_Left);
  expectSopra(schermo, 3, kPrz);
}

TEST_F(EditorInGriglia, LeFrecceColleMaiuscoleScelgonoNelTesto) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(3, kPrz);
  schermo.press(Qt::Key_End);
  schermo.press(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(schermo.current(), t("3,2"));
  EXPECT_EQ(schermo.box().selectedText(), t("0"));
}

TEST_F(EditorInGriglia, GiuESuCambianoRigaESiFermanoAiCapi) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kPrz);
  schermo.press(Qt::Key_Up);
  expectSopra(schermo, 1, kPrz);
  schermo.press(Qt::Key_Down);
  expectSopra(schermo, 2, kPrz);
  schermo.press(Qt::Key_Up);
  expectSopra(schermo, 1, kPrz);
  schermo.clickCell(kUltimaRiga, kPrz);
  schermo.press(Qt::Key_Down);
  expectSopra(schermo, kUltimaRiga, kPrz);
}

TEST_F(EditorInGriglia, AiQuattroAngoliLeFrecceNonEscono) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kDesc);
  for (const Qt::Key tasto : {Qt::Key_Up, Qt::Key_Left}) schermo.press(tasto);
  expectSopra(schermo, 1, kDesc);
  schermo.clickCell(kUltimaRiga, kTallon);
  for (const Qt::Key tasto : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Return}) schermo.press(tasto);
  expectSopra(schermo, kUltimaRiga, kTallon);
}

TEST_F(EditorInGriglia, InvioVaUnaRigaGiu) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kPrz);
  schermo.press(Qt::Key_Return);
  expectSopra(schermo, 2, kPrz);
  schermo.press(Qt::Key_Enter, Qt::KeypadModifier);
  expectSopra(schermo, 3, kPrz);
}

TEST_F(EditorInGriglia, ScendendoOltreIlBordoLaGrigliaScorreConLaCasella) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kPrz);
  for (int i = 0; i < 40; ++i) schermo.press(Qt::Key_Down);
  expectSopra(schermo, 41, kPrz);
  EXPECT_TRUE(schermo.grid().viewport()->rect().contains(schermo.box().geometry()));
}

TEST_F(EditorInGriglia, PaginaGiuScendeDiUnaPagina) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kPrz);
  schermo.press(Qt::Key_PageDown);
  EXPECT_GT(schermo.grid().Row(), 5);
  expectSopra(schermo, schermo.grid().Row(), kPrz);
}

TEST_F(EditorInGriglia, TabVaAllaCellaSeguenteEAllaRigaSeguente) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kSingola);
  schermo.press(Qt::Key_Tab);
  expectSopra(schermo, 1, kTallon);
  schermo.press(Qt::Key_Tab);
  expectSopra(schermo, 2, kDesc);
  schermo.press(Qt::Key_Backtab, Qt::ShiftModifier);
  expectSopra(schermo, 1, kTallon);
}

TEST_F(EditorInGriglia, TabNellUltimaCellaPortaAiComandi) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(kUltimaRiga, kTallon);
  schermo.press(Qt::Key_Tab);
  EXPECT_EQ(schermo.focus(), kSalva);
}

TEST_F(EditorInGriglia, TabAllIndietroNellaPrimaCellaPortaAllaGriglia) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kDesc);
  schermo.press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(schermo.focus(), t("MSFlexGridReparti"));
}

TEST_F(EditorInGriglia, F2NellaCasellaPortaInFondoAlTesto) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kPrz);
  schermo.press(Qt::Key_F2);
  EXPECT_FALSE(schermo.box().hasSelectedText());
  EXPECT_EQ(schermo.box().cursorPosition(), 4);
}

// Typing.

TEST_F(EditorInGriglia, CioCheSiScriveStaSubitoNellaCella) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(2, kDesc);
  schermo.type(t("Ba"));
  EXPECT_EQ(schermo.cell(2, kDesc), t("Ba"));
  schermo.type(t("r"));
  EXPECT_EQ(schermo.cell(2, kDesc), t("Bar"));
}

TEST_F(EditorInGriglia, UnaModificaAccendeLaBandieraESegnaLaRiga) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kDesc, t("B"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
  EXPECT_EQ(schermo.marked(), QList<int>{2});
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: 1 reparto (2)"));
}

TEST_F(EditorInGriglia, OltreIlLimiteSiContanoICaratteriDaSubitoFinoACheTornanoDentro) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kDesc, QString(24, u'A'));
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: 1 reparto (2)"));
  schermo.type(t("B"));
  EXPECT_EQ(schermo.foot(),
            t("Modifiche non salvate: 1 reparto (2) - 25/24 caratteri, gli ultimi si perdono"));
  schermo.type(t("CD"));
  EXPECT_EQ(schermo.foot(),
            t("Modifiche non salvate: 1 reparto (2) - 27/24 caratteri, gli ultimi si perdono"));
  for (int i = 0; i < 3; ++i) schermo.press(Qt::Key_Backspace);
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: 1 reparto (2)"));
}

TEST_F(EditorInGriglia, IlContoDeiCaratteriEDellaCellaDoveSiScriveENonDeiNumeri) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kDesc, QString(27, u'A'));
  schermo.write(3, kDesc, t("B"));
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: 2 reparti (2, 3)"));
  schermo.write(2, kDesc, QString(27, u'C'));
  schermo.write(2, kPrz, t("1"));
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: 2 reparti (2, 3)"));
}

TEST_F(EditorInGriglia, RimettendoLaCellaIlContoVaVia) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kDesc, QString(27, u'A'));
  schermo.press(Qt::Key_Escape);
  EXPECT_EQ(schermo.foot(), t("80 reparti"));
}

TEST_F(EditorInGriglia, UnTestoUgualeAQuelloDellaCellaNonSegnaNulla) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(2, kTipo);
  schermo.type(t("s"));
  EXPECT_EQ(schermo.cell(2, kTipo), t("S"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(schermo.marked(), QList<int>());
}

TEST_F(EditorInGriglia, UnRipiegoUgualeACioCheCEraNonSegnaNulla) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(2, kIva);
  schermo.type(t("0"));
  expectBoxes(program, {warning(t("Attenzione il valore non puo' essere 0"))});
  EXPECT_EQ(schermo.cell(2, kIva), t("1"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(schermo.marked(), QList<int>());
}

TEST_F(EditorInGriglia, GuardareLeCelleNonModificaNulla) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(1, kDesc);
  for (int i = 0; i < 30; ++i) schermo.press(Qt::Key_Tab);
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(schermo.marked(), QList<int>());
}

TEST_F(EditorInGriglia, IlPiedeNominaLeRigheModificateFinoAOtto) {
  const GuidedEditor schermo = apri();
  for (int riga = 1; riga <= 9; ++riga) schermo.write(riga, kDesc, t("B"));
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: 9 reparti (1, 2, 3, 4, 5, 6, 7, 8, …)"));
}

TEST_F(EditorInGriglia, IncollarePassaDagliStessiFiltri) {
  const GuidedEditor schermo = apri();
  QGuiApplication::clipboard()->setText(t("€ 12.50,75,1"));
  schermo.clickCell(2, kPrz);
  schermo.press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(schermo.cell(2, kPrz), t("1250,75"));
  EXPECT_EQ(schermo.box().text(), t("1250,75"));
}

TEST_F(EditorInGriglia, IlPuntoDelTastierinoScriveLaVirgola) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kPrz, t("1"));
  QTest::keyClick(&schermo.box(), Qt::Key_Period, Qt::KeypadModifier);
  schermo.type(t("5"));
  EXPECT_EQ(schermo.cell(2, kPrz), t("1,5"));
}

TEST_F(EditorInGriglia, EscRimetteIlTestoComEraETogliIlSegno) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kPrz, t("7"));
  schermo.press(Qt::Key_Escape);
  EXPECT_EQ(schermo.cell(2, kPrz), t("0,00"));
  EXPECT_EQ(schermo.box().selectedText(), t("0,00"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(schermo.marked(), QList<int>());
  EXPECT_EQ(schermo.foot(), t("80 reparti"));
}

TEST_F(EditorInGriglia, EscLasciaLeModificheDiPrima) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kDesc, t("Bar"));
  schermo.write(2, kPrz, t("7"));
  schermo.press(Qt::Key_Escape);
  EXPECT_EQ(schermo.cell(2, kDesc), t("Bar"));
  EXPECT_EQ(schermo.cell(2, kPrz), t("0,00"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
  EXPECT_EQ(schermo.marked(), QList<int>{2});
}

TEST_F(EditorInGriglia, EscDopoCheUnAltroComandoHaSalvatoEUnaModificaNuova) {
  const GuidedEditor schermo = apri();
  schermo.write(2, kDesc, t("Bar"));
  editors::SalvaModificati(program.contesto);
  ASSERT_EQ(varGestionePRG().ModificaReparti, kFalso);
  schermo.press(Qt::Key_Escape);
  EXPECT_EQ(schermo.cell(2, kDesc), QString());
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
  EXPECT_EQ(schermo.marked(), QList<int>{2});
}

TEST_F(EditorInGriglia, EscSenzaAverScrittoNonFaNulla) {
  const GuidedEditor schermo = apri();
  schermo.clickCell(2, kPrz);
  schermo.press(Qt::Key_End);
  schermo.press(Qt::Key_Escape);
  EXPECT_EQ(schermo.box().selectedText(), t("0,00"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
}

TEST_F(EditorInGriglia, EscNonChiudeMaiLEditor) {
  const GuidedEditor schermo = apri();
  int uscite = 0;
  QShortcut esc(Qt::Key_Escape, &schermo.window());
  QObject::connect(&esc, &QShortcut::activated, &esc, [&] { ++uscite; });
  schermo.clickCell(2, kPrz);
  schermo.press(Qt::Key_Escape);
  EXPECT_EQ(uscite, 0);
  EXPECT_TRUE(schermo.alive());
  expectSopra(schermo, 2, kPrz);
}

// "Salva Modifiche".

TEST_F(EditorInGriglia, SenzaModificheSalvaNonScriveNulla) {
  const GuidedEditor schermo = apri();
  QFile::remove(varGestionePRG().PathConfigurazione);
  schermo.click(kSalva);
  EXPECT_FALSE(QFile::exists(varGestionePRG().PathConfigurazione));
  EXPECT_EQ(schermo.foot(), t("Nessuna modifica da salvare"));
  expectBoxes(program, {});
}

TEST_F(EditorInGriglia, IlTastoSalvaSenzaChiedere) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("Bar"));
  schermo.click(kSalva);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kReparto1, 4), QByteArray("Bar\0", 4));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(schermo.marked(), QList<int>());
  EXPECT_EQ(schermo.boxes(), QStringList());
  EXPECT_EQ(schermo.current(), t("1,1"));
  EXPECT_EQ(schermo.foot(), t("Salvato: 1 reparto"));
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Done);
}

TEST_F(EditorInGriglia, CtrlSDaUnaCasellaChiedeEColSiSalva) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("Bar"));
  program.user.answers(Answer::Yes);
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kDomanda});
  EXPECT_EQ(onDisk(kReparto1, 4), QByteArray("Bar\0", 4));
  EXPECT_EQ(schermo.focus(), t("MSFlexGridReparti"));
}

TEST_F(EditorInGriglia, CtrlSDaUnaCasellaColNoLasciaTuttoComE) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("Bar"));
  program.user.answers(Answer::No);
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kDomanda});
  EXPECT_EQ(onDisk(kReparto1, 4), QByteArray(4, '\0'));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
  EXPECT_EQ(schermo.cell(1, kDesc), t("Bar"));
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: 1 reparto (1)"));
  expectSopra(schermo, 1, kDesc);
}

TEST_F(EditorInGriglia, CtrlSSenzaModificheNonChiedeNulla) {
  const GuidedEditor schermo = apri();
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {});
  EXPECT_EQ(schermo.foot(), t("Nessuna modifica da salvare"));
}

TEST_F(EditorInGriglia, DentroUnaCorniceLavoraComeDaSolo) {
  QWidget cornice;
  auto* disposizione = new QVBoxLayout(&cornice);
  auto* editor = new Form_Reparti(program.contesto);
  disposizione->addWidget(new QLineEdit);
  disposizione->addWidget(editor);
  cornice.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&cornice));
  editor->setFocus();
  EXPECT_EQ(cornice.focusWidget()->objectName(), t("MSFlexGridReparti"));
  QTest::keyClick(cornice.focusWidget(), Qt::Key_F2);
  EXPECT_EQ(cornice.focusWidget()->objectName(), t("casella_1"));
  QTest::keyClicks(cornice.focusWidget(), t("Bar"));
  program.user.answers(Answer::Yes);
  QTest::keyClick(cornice.focusWidget(), Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kDomanda});
  EXPECT_EQ(onDisk(kReparto1, 4), QByteArray("Bar\0", 4));
}

TEST_F(EditorInGriglia, MentreSalvaCELaSchermataDiAttesa) {
  countWaitScreens();
  const GuidedEditor schermo = apri();
  schermo.click(kSalva);
  EXPECT_EQ(waitScreens, 0);
  schermo.write(1, kDesc, t("Bar"));
  schermo.click(kSalva);
  EXPECT_EQ(waitScreens, 1);
  EXPECT_EQ(program.screens.trova(t("Form_ATTESA")), nullptr);
}

TEST_F(EditorInGriglia, DueSalvataggiDiSeguitoDannoDueFileUguali) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("Bar"));
  schermo.click(kSalva);
  const QByteArray primo = onDisk(0, 245114);
  editor(schermo).salvaInMemoria();
  EXPECT_EQ(config::SalvaConfigurazione(varGestionePRG().PathConfigurazione, program.user), 0);
  EXPECT_EQ(onDisk(0, 245114), primo);
}

TEST_F(EditorInGriglia, UnSalvataggioCheNonRiesceLasciaIlFileELeModificheDaSalvare) {
  const GuidedEditor schermo = apri();
  varGestionePRG().PathConfigurazione = program.folder.file(t("sparita/negozio.dat"));
  schermo.write(1, kDesc, t("Bar"));
  schermo.click(kSalva);
  expectBoxes(program, {plainBox(t("Error 76 (*"))});
  EXPECT_EQ(schermo.foot(), t("Non salvato nel file: togliere la causa e salvare di nuovo"));
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Failed);
  EXPECT_EQ(inMemory(kReparto1, 4), QByteArray(4, '\0')) << "what the file does not hold must not travel";
  EXPECT_EQ(onDisk(kReparto1, 4), QByteArray(4, '\0'));
  EXPECT_EQ(schermo.cell(1, kDesc), t("Bar"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
  varGestionePRG().PathConfigurazione = program.folder.file(t("negozio.dat"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Done);
  EXPECT_EQ(onDisk(kReparto1, 4), QByteArray("Bar\0", 4));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
}

// "Annulla Modifiche" and the refill.

TEST_F(EditorInGriglia, AnnullaRiportaLaMemoriaEToglieLeCaselle) {
  put(kReparto1, QByteArray("Fresco"));
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("Bar"));
  schermo.write(3, kPrz, t("9"));
  schermo.click(kAnnulla);
  EXPECT_EQ(schermo.cell(1, kDesc), t("Fresco"));
  EXPECT_EQ(schermo.cell(3, kPrz), t("0,00"));
  EXPECT_EQ(schermo.boxes(), QStringList());
  EXPECT_EQ(schermo.marked(), QList<int>());
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  EXPECT_EQ(schermo.foot(), t("Modifiche annullate: 2 reparti (1, 3)"));
  EXPECT_EQ(schermo.current(), t("3,2"));
  expectBoxes(program, {});
}

TEST_F(EditorInGriglia, DopoAnnullaUnClicSullaStessaCellaMostraIlTestoNuovo) {
  const GuidedEditor schermo = apri();
  schermo.write(3, kPrz, t("9"));
  schermo.click(kAnnulla);
  schermo.clickCell(3, kPrz);
  EXPECT_EQ(schermo.box().text(), t("0,00"));
}

TEST_F(EditorInGriglia, RicaricareRiempieDallaMemoriaETieneLaCella) {
  const GuidedEditor schermo = apri();
  schermo.write(3, kPrz, t("9"));
  config::scriviTesto(config::immagineProgrammazione().record(config::kReparto, 2),
                      config::reparto::kDescrizione, t("Letto"));
  editor(schermo).ricarica();
  EXPECT_EQ(schermo.cell(3, kDesc), t("Letto"));
  EXPECT_EQ(schermo.cell(3, kPrz), t("0,00"));
  EXPECT_EQ(schermo.boxes(), QStringList());
  EXPECT_EQ(schermo.marked(), QList<int>());
  EXPECT_EQ(schermo.current(), t("3,2"));
}

TEST_F(EditorInGriglia, UnaLarghezzaPresaConLaManoRestaDopoAnnulla) {
  const GuidedEditor schermo = apri();
  schermo.grid().setColumnWidth(kPrz, 200);
  schermo.click(kAnnulla);
  EXPECT_EQ(schermo.grid().columnWidth(kPrz), 200);
}

TEST_F(EditorInGriglia, ChiudendoNonSiSalvaNulla) {
  {
    const GuidedEditor schermo = apri();
    schermo.write(1, kDesc, t("Bar"));
    program.screens.scarica(kSchermo);
  }
  EXPECT_EQ(onDisk(kReparto1, 4), QByteArray(4, '\0'));
  EXPECT_EQ(inMemory(kReparto1, 4), QByteArray(4, '\0'));
}

TEST_F(EditorInGriglia, SalvareInMemoriaNonToccaIlFile) {
  const GuidedEditor schermo = apri();
  schermo.write(1, kDesc, t("Bar"));
  editor(schermo).salvaInMemoria();
  EXPECT_EQ(inMemory(kReparto1, 4), QByteArray("Bar\0", 4));
  EXPECT_EQ(onDisk(kReparto1, 4), QByteArray(4, '\0'));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
}

TEST_F(EditorInGriglia, OgniEditorHaLaSuaBandiera) {
  const GuidedEditor reparti = apri();
  reparti.write(1, kDesc, t("Bar"));
  const GuidedEditor aliquote(program, t("Form_IVA"));
  EXPECT_EQ(varGestionePRG().ModificaIVA, kFalso);
  aliquote.click(kSalva);
  EXPECT_EQ(aliquote.foot(), t("Nessuna modifica da salvare"));
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
}

// A fill that fails.

namespace {

QString guasto(config::RecordLetto) {
  throw Errore{13, QStringLiteral("Tipo non corrispondente")};
}

/// The departments' screen with a column that cannot be read.
class RepartiIlleggibili : public EditorGriglia {
 public:
  explicit RepartiIlleggibili(Contesto& contesto)
      : EditorGriglia(contesto, tabella(), editors::SalvaReparti) {}

 private:
  static const editors::Tabella& tabella() {
    static const std::vector<editors::Colonna> colonne = [] {
      const auto vere = editors::TabellaReparti().colonne;
      std::vector<editors::Colonna> copia(vere.begin(), vere.end());
      copia[kPrz].leggi = guasto;
      return copia;
    }();
    static const editors::Tabella unica = [] {
      editors::Tabella copia = editors::TabellaReparti();
      copia.colonne = colonne;
      return copia;
    }();
    return unica;
  }
};

}  // namespace

TEST_F(EditorInGriglia, UnRiempimentoCheFallisceSiDiceELaSchermataResta) {
  program.screens.registra(kSchermo, [](Contesto& c) { return new RepartiIlleggibili(c); });
  put(kReparto1, QByteArray("Fresco"));
  const GuidedEditor schermo = apri();
  const Box riquadro = criticalBox(t("RiempiGridReparti 13 - Tipo non corrispondente"));
  expectBoxes(program, {riquadro});
  EXPECT_EQ(schermo.row(1).mid(0, 3), QStringList({t("1"), t("Fresco"), QString()}));
  EXPECT_EQ(schermo.grid().Rows(), 81);
  EXPECT_EQ(varGestionePRG().ModificaReparti, kFalso);
  schermo.click(kAnnulla);
  expectBoxes(program, {riquadro});
  EXPECT_TRUE(schermo.alive());
}

TEST_F(EditorInGriglia, DopoUnRiempimentoFallitoIRepartiCheNonSiVedonoNonSiSalvanoVuoti) {
  program.screens.registra(kSchermo, [](Contesto& c) { return new RepartiIlleggibili(c); });
  put(kReparto1, QByteArray("Fresco"));
  const QByteArray prima = onDisk(0, 245114);
  const GuidedEditor schermo = apri();
  program.takeBoxes();
  schermo.write(2, kDesc, t("Bar"));
  schermo.write(2, kIva, t("1"));
  schermo.write(2, kTallon, t("1"));
  schermo.click(kSalva);
  expectBoxes(program, {plainBox(t("Error 6 (*"))});
  EXPECT_EQ(varGestionePRG().ModificaReparti, kVero);
  EXPECT_EQ(onDisk(0, 245114), prima);
  EXPECT_EQ(inMemory(kReparto1, 6), QByteArray("Fresco"));
}

// Its looks.

TEST_F(EditorInGriglia, ADodiciPuntiStaEIlNumeroDiRigaRestaFermo) {
  const GuidedEditor schermo = apri();
  expectFitsAtTwelvePoints(schermo);
  EXPECT_EQ(schermo.grid().FixedCols(), 1);
}

TEST_F(EditorInGriglia, AlleDodiciPuntiLaCasellaHaPostoPerIlSuoTesto) {
  const GuidedEditor schermo = apri();
  QFont grande = schermo.window().font();
  grande.setPointSize(12);
  schermo.window().setFont(grande);
  schermo.clickCell(1, kPrz);
  EXPECT_GE(schermo.box().height(), schermo.box().fontMetrics().height() + 4);
  EXPECT_EQ(schermo.box().font().pointSize(), 12);
}

TEST_F(EditorInGriglia, UnComandoPrimarioSolo) {
  const GuidedEditor schermo = apri();
  QStringList primari;
  for (const QPushButton* tasto : schermo.window().findChildren<QPushButton*>())
    if (tasto->property("primary").toBool()) primari << tasto->objectName();
  EXPECT_EQ(primari, QStringList{kSalva});
  EXPECT_EQ(schermo.text(kSalva), t("Salva Modifiche"));
  EXPECT_EQ(schermo.text(kAnnulla), t("Annulla Modifiche"));
}
