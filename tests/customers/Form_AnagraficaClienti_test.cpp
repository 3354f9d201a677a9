#include "customers/Form_AnagraficaClienti.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "controls/FlexGrid.h"
#include "controls/outcome_bar.h"
#include "core/menu.h"
#include "customers/customer_database.h"
#include "customers/office.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

const QString kSchermo = QStringLiteral("Form_AnagraficaClienti");
const QString kFatture = QStringLiteral("Form_ArchivioFattureClienti");
const QString kCodice = QStringLiteral("vkTextBoxIdCliente");
const QString kStato = QStringLiteral("vkTextBoxStato");
const QString kNome = QStringLiteral("vkTextBoxRagioneSociale");
const QString kIndirizzo = QStringLiteral("vkTextboxIndirizzo");
const QString kCitta = QStringLiteral("vkTextBoxCitta");
const QString kIva = QStringLiteral("vkTextBoxPartitaIVA");
const QString kNote = QStringLiteral("vkTextboxNOTE");
const QString kQuanti = QStringLiteral("vkTextBoxClientiPC");
const QString kCerca = QStringLiteral("Vmd_Cerca");
const QString kTutti = QStringLiteral("Cmd_Refresh");
const QString kPulisci = QStringLiteral("Cmd_Reset");
const QString kNuovo = QStringLiteral("Cmd_nuovo");
const QString kMemorizza = QStringLiteral("vkCmd_Memorizza_Cliente");
const QString kModifica = QStringLiteral("Cmd_Modifica");
const QString kElimina = QStringLiteral("Cmd_Elimina");
const QString kExport = QStringLiteral("Cmd_Export");
const QString kMostraFatture = QStringLiteral("vkCommand1");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kGriglia = QStringLiteral("MSFlexGridClienti");

const QString kVera = QStringLiteral("00905811006");
const QString kAltra = QStringLiteral("01114601006");
const QString kErrata = QStringLiteral("00905811007");

const Box kCodiceRifiutato =
    criticalBox(QStringLiteral("Attenzione il codice cliente deve essere compreso tra 1 e 250 !!!!"));
const Box kIvaErrata = criticalBox(QStringLiteral(
    "Attenzione il valore immesso per la partita IVA non e' corretto. Prego verificare le cifre immesse!!!"));
const Box kNessuno = box(QStringLiteral("Attenzione nessun cliente selezionato!!!"), Icon::Warning);
const Box kObbligatori = criticalBox(
    QStringLiteral("Attenzione i campi Ragione Sociale, Indirizzo, Citta, Partita IVA sono obbligatori!!!"));
const Box kAnonimo =
    box(QStringLiteral("Attenzione il cliente anonimo non puo' essere eliminato o modificato !!!"),
        Icon::Warning);
const Box kDomanda{QStringLiteral("Attenzione questa operazione comporterà l'eliminazione definitiva del "
                                  "cliente. Continuare ?"),
                   Icon::Warning, QStringLiteral("Cancellazione Cliente"), Buttons::OkCancel, Preset::Last};
const Box kGrave = criticalBox(
    QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!"));

/// The registry under the hands of a person.
class GuidedRegistry : public GuidedScreen {
 public:
  explicit GuidedRegistry(ProgramFixture& program) : GuidedScreen(program, kSchermo) {}

  FlexGrid& grid() const { return control<FlexGrid>(kGriglia); }
  void clickRow(int row, int column = 2) const {
    const QModelIndex cell = grid().model()->index(row - 1, column);
    grid().scrollTo(cell);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualRect(cell).center());
  }
  QStringList codes() const {
    QStringList all;
    for (int row = 1; row < grid().Rows(); ++row) all += grid().TextMatrix(row, 0);
    return all;
  }
  QString row(int number) const {
    QStringList cells;
    for (int column = 0; column < grid().Cols(); ++column) cells += grid().TextMatrix(number, column);
    return cells.join(u'|');
  }
  QString fields() const {
    QStringList all;
    for (const QString& name : {kCodice, kStato, kNome, kIndirizzo, kCitta, kIva, kNote}) all += text(name);
    return all.join(u'|');
  }
  /// Which of store and change are on.
  QString mode() const {
    return QString(enabled(kMemorizza) ? u'M' : u'-') + QString(enabled(kModifica) ? u'S' : u'-');
  }
  QString said() const { return control<OutcomeBar>("BarraEsito").text(); }
  OutcomeBar::Kind kind() const { return control<OutcomeBar>("BarraEsito").kind(); }
  QString primary() const {
    QStringList names;
    for (const QPushButton* one : window().findChildren<QPushButton*>())
      if (one->property("primary").toBool()) names << one->objectName();
    return names.join(u' ');
  }
  QString hint(const QString& field) const {
    const auto* label = window().findChild<QLabel*>(QStringLiteral("Avviso_") + field);
    return label && label->isVisible() ? label->text() : QString();
  }
  /// Types over what a field holds, accents too.
  void type(const QString& field, const QString& keys) const {
    GuidedScreen::type(field, {});
    for (const QChar one : keys)
      QTest::sendKeyEvent(QTest::Click, &control(field), Qt::Key_unknown, QString(one), Qt::NoModifier);
  }
  void control(Qt::Key key) const { QTest::keyClick(window().focusWidget(), key, Qt::ControlModifier); }
  using GuidedScreen::control;
};

class SchermoAnagrafica : public testing::Test {
 protected:
  SchermoAnagrafica() {
    registraSchermateCore(ufficio.screens);
    ufficio.screens.registra<Form_AnagraficaClienti>();
  }
  void prepara() {
    ufficio.openArchive();
    ufficio.execute(
        QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (3,'BAR SPORT','VIA PO 1','TORINO',"
                       "'00905811006','PAGA A 30 GG',1)"));
    ufficio.execute(QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (9,'','','','','',2)"));
  }
  GuidedRegistry apri() {
    prepara();
    return GuidedRegistry(ufficio);
  }
  void attendi(const std::vector<Box>& attesi) { expectBoxes(ufficio, attesi); }
  QString riga(int codice) {
    return ufficio.rows(QStringLiteral("SELECT * FROM TAB_ANAG_CLIENTI WHERE ID_Cliente =%1").arg(codice))
        .join(u'/');
  }
  static void riempi(const GuidedRegistry& schermo, const QString& nome, const QString& iva) {
    schermo.type(kNome, nome);
    schermo.type(kIndirizzo, QStringLiteral("via Roma 1"));
    schermo.type(kCitta, QStringLiteral("Forlì"));
    schermo.type(kIva, iva);
  }

  Office ufficio;
};

}  // namespace

// Opening.

TEST_F(SchermoAnagrafica, AllAperturaCiSonoTuttiIClientiELoroNumero) {
  const GuidedRegistry schermo = apri();
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Anagrafica Clienti"));
  EXPECT_EQ(schermo.codes(), (QStringList{QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("9")}));
  EXPECT_EQ(schermo.text(kQuanti), QStringLiteral("00002"));
  EXPECT_EQ(schermo.said(), QStringLiteral("2 clienti"));
  EXPECT_EQ(schermo.fields(), QStringLiteral("||||||"));
  EXPECT_EQ(schermo.focus(), kNome);
  EXPECT_EQ(schermo.mode(), QStringLiteral("-S"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelArchivio")), QStringLiteral("Archivio: clienti.mdb"));
  EXPECT_EQ(varGlobal().FlagAnomalia, kFalso);
}

TEST_F(SchermoAnagrafica, LeScritteSonoQuelleDettate) {
  const GuidedRegistry schermo = apri();
  EXPECT_EQ(schermo.text(QStringLiteral("vkLabelInfoCampi")),
            QStringLiteral("Valorizzare i campi seguenti :"));
  EXPECT_EQ(schermo.text(kPulisci), QStringLiteral("Clear"));
  EXPECT_EQ(schermo.text(kModifica), QStringLiteral("Salva Modifiche"));
  EXPECT_EQ(schermo.text(kExport), QStringLiteral("Export Clienti"));
}

TEST_F(SchermoAnagrafica, DuranteIlRiempimentoCELaFinestraDiAttesa) {
  prepara();
  int viste = 0;
  ufficio.user.onPass = [&] {
    const QWidget* attesa = ufficio.screens.trova(QStringLiteral("Form_ATTESA"));
    ASSERT_NE(attesa, nullptr);
    viste += attesa->isVisible() ? 1 : 0;
  };
  const GuidedRegistry schermo(ufficio);
  ufficio.user.onPass = nullptr;
  EXPECT_EQ(viste, 3);
  EXPECT_EQ(ufficio.screens.trova(QStringLiteral("Form_ATTESA")), nullptr);
}

TEST_F(SchermoAnagrafica, SenzaLaTabellaIlProgrammaTerminaSenzaLasciareNulla) {
  ufficio.openWith({QStringLiteral("CREATE TABLE ALTRA (A)")});
  EXPECT_THROW(ufficio.screens.carica(kSchermo, ufficio.contesto), ProgramEnded);
  attendi({kGrave});
  EXPECT_TRUE(ufficio.user.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  EXPECT_EQ(ufficio.screens.trova(QStringLiteral("Form_ATTESA")), nullptr);
  EXPECT_EQ(ufficio.screens.trova(kSchermo), nullptr);
}

TEST_F(SchermoAnagrafica, UnArchivioColSoloAnonimoHaZeroClienti) {
  ufficio.openArchive();
  const GuidedRegistry schermo(ufficio);
  EXPECT_EQ(schermo.text(kQuanti), QStringLiteral("00000"));
  EXPECT_EQ(schermo.said(), QStringLiteral("Soltanto il cliente anonimo"));
}

TEST_F(SchermoAnagrafica, UnArchivioSenzaNemmenoLAnonimoSiDiceErrato) {
  ufficio.openArchive();
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
  const GuidedRegistry schermo(ufficio);
  EXPECT_EQ(schermo.text(kQuanti), QStringLiteral("-00001"));
  EXPECT_EQ(schermo.said(), QStringLiteral("L'archivio ha perso il cliente anonimo"));
  EXPECT_EQ(schermo.kind(), OutcomeBar::Kind::Failed);
  schermo.clickRow(1);
  EXPECT_EQ(schermo.fields(), QStringLiteral("||||||"));
}

// Picking a row.

TEST_F(SchermoAnagrafica, UnaRigaSceltaVaNeiCampiEIlCursoreTornaAllaPrimaColonna) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2, 4);
  EXPECT_EQ(schermo.fields(), QStringLiteral("3| |BAR SPORT|VIA PO 1|TORINO|00905811006|PAGA A 30 GG"));
  EXPECT_EQ(schermo.grid().Row(), 2);
  EXPECT_EQ(schermo.grid().Col(), 0);
  EXPECT_EQ(schermo.grid().RowInFields(), 2);
  EXPECT_EQ(schermo.mode(), QStringLiteral("-S")) << "the mode is as it was";
}

TEST_F(SchermoAnagrafica, LAnonimoEICodiciOltreLaTabellaSiScelgonoSenzaMessaggi) {
  prepara();
  ufficio.customer(251, QStringLiteral("X"));
  ufficio.customer(65535, QStringLiteral("Y"));
  const GuidedRegistry schermo(ufficio);
  for (const auto& [numero, codice] :
       {std::pair{1, "0"}, std::pair{4, "251"}, std::pair{5, "65535"}, std::pair{2, "3"}}) {
    schermo.clickRow(numero);
    EXPECT_EQ(schermo.text(kCodice), QLatin1String(codice));
  }
  attendi({});
}

TEST_F(SchermoAnagrafica, UnaPartitaIVAConDueVirgoleNellArchivioSiDice) {
  prepara();
  ufficio.customer(20, QStringLiteral("X"), QStringLiteral("1,2,3"));
  const GuidedRegistry schermo(ufficio);
  schermo.clickRow(4);
  attendi({box(QStringLiteral("Attenzione il valore immesso non è di tipo numerico !!!"), Icon::Warning)});
  EXPECT_EQ(schermo.text(kIva), QStringLiteral("1,2,3"));
}

TEST_F(SchermoAnagrafica, UnAltraRigaSopraModificheNonSalvateLoDice) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  schermo.type(kNote, QStringLiteral("x"));
  EXPECT_EQ(schermo.said(), QStringLiteral("Modifiche non salvate: 3 BAR SPORT"));
  EXPECT_EQ(schermo.primary(), kModifica);
  schermo.clickRow(3);
  EXPECT_EQ(schermo.said(), QStringLiteral("Modifiche non salvate e sostituite: 3 BAR SPORT"));
  EXPECT_EQ(schermo.primary(), kCerca);
}

// The fields.

TEST_F(SchermoAnagrafica, NeiCodiciEntranoSoloCifreENelleCaselleIlLoroMassimo) {
  const GuidedRegistry schermo = apri();
  schermo.type(kCodice, QStringLiteral("1a2-"));
  EXPECT_EQ(schermo.text(kCodice), QStringLiteral("12"));
  EXPECT_EQ(schermo.hint(kCodice), QStringLiteral("Solo cifre"));
  schermo.type(kIva, QStringLiteral("IT0,09"));
  EXPECT_EQ(schermo.text(kIva), QStringLiteral("009"));
  const QString lungo(41, u'x');
  for (const QString& nome : {kNome, kIndirizzo, kCitta, kNote}) {
    schermo.type(nome, lungo);
    EXPECT_EQ(schermo.text(nome), lungo.left(40));
    EXPECT_EQ(schermo.hint(nome), QStringLiteral("Al massimo 40 caratteri"));
  }
  // The VAT number was left.
  attendi({kIvaErrata});
}

TEST_F(SchermoAnagrafica, CioCheSiIncollaNelCodicePassaDallaStessaRegola) {
  const GuidedRegistry schermo = apri();
  auto& codice = schermo.control<QLineEdit>(kCodice);
  QTest::mouseClick(&codice, Qt::LeftButton);
  QGuiApplication::clipboard()->setText(QStringLiteral("a7"));
  schermo.control(Qt::Key_V);
  EXPECT_EQ(schermo.text(kCodice), QStringLiteral("7"));
  codice.selectAll();
  schermo.control(Qt::Key_X);
  EXPECT_EQ(schermo.text(kCodice), QString()) << "cutting passes";
  attendi({kCodiceRifiutato});
  QGuiApplication::clipboard()->setText(QStringLiteral("x9b"));
  schermo.control(Qt::Key_V);
  EXPECT_EQ(schermo.text(kCodice), QStringLiteral("9"));
}

TEST_F(SchermoAnagrafica, IlCodiceAccettaUnoEDuecentocinquanta) {
  const GuidedRegistry schermo = apri();
  schermo.type(kCodice, QStringLiteral("1"));
  EXPECT_EQ(schermo.text(kCodice), QStringLiteral("1"));
  schermo.control<QLineEdit>(kCodice).selectAll();
  QTest::keyClicks(&schermo.control(kCodice), QStringLiteral("250"));
  EXPECT_EQ(schermo.text(kCodice), QStringLiteral("250"));
  attendi({});
}

TEST_F(SchermoAnagrafica, IlCodiceRifiutaZeroEDuecentocinquantunoUnaVoltaESiVuota) {
  const GuidedRegistry schermo = apri();
  schermo.type(kCodice, QStringLiteral("0"));
  attendi({kCodiceRifiutato});
  EXPECT_EQ(schermo.text(kCodice), QString());
  schermo.type(kCodice, QStringLiteral("251"));
  attendi({kCodiceRifiutato});
  EXPECT_EQ(schermo.text(kCodice), QString());
  EXPECT_EQ(schermo.said(), kCodiceRifiutato.text);
}

TEST_F(SchermoAnagrafica, UnCodiceCheSiSvuotaAManoSiDice) {
  const GuidedRegistry schermo = apri();
  schermo.type(kCodice, QStringLiteral("7"));
  schermo.key(Qt::Key_Backspace);
  attendi({kCodiceRifiutato});
}

TEST_F(SchermoAnagrafica, LaPartitaIVASiControllaMentreSiScriveConUnaRigaSottoIlCampo) {
  const GuidedRegistry schermo = apri();
  schermo.type(kIva, kErrata.left(10));
  EXPECT_EQ(schermo.hint(kIva), QString());
  QTest::keyClicks(&schermo.control(kIva), QStringLiteral("7"));
  EXPECT_EQ(schermo.hint(kIva), QStringLiteral("Partita IVA non corretta: verificare le cifre"));
  schermo.key(Qt::Key_Backspace);
  EXPECT_EQ(schermo.hint(kIva), QString());
  QTest::keyClicks(&schermo.control(kIva), QStringLiteral("6"));
  EXPECT_EQ(schermo.hint(kIva), QString());
  attendi({});
}

TEST_F(SchermoAnagrafica, LasciandoUnaPartitaIVASbagliataSiDiceEIlCampoLaTiene) {
  const GuidedRegistry schermo = apri();
  schermo.type(kIva, kErrata);
  schermo.key(Qt::Key_Tab);
  attendi({kIvaErrata});
  EXPECT_EQ(schermo.text(kIva), kErrata);
  EXPECT_EQ(schermo.focus(), kIndirizzo) << "nobody is held in the field";
  EXPECT_EQ(schermo.kind(), OutcomeBar::Kind::Failed);
}

TEST_F(SchermoAnagrafica, LasciandoUnaPartitaIVAVuotaGiustaOCortaMaGiustaNonSiDiceNulla) {
  const GuidedRegistry schermo = apri();
  for (const char* buona : {"", "00905811006", "905811006", "00000000000", "0"}) {
    schermo.type(kIva, QLatin1String(buona));
    schermo.key(Qt::Key_Tab);
    attendi({});
  }
}

TEST_F(SchermoAnagrafica, UscendoConEscLaPartitaIVANonSiControlla) {
  const GuidedRegistry schermo = apri();
  schermo.type(kIva, kErrata);
  schermo.key(Qt::Key_Escape);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(SchermoAnagrafica, IlClicSulComandoPerCuiSiLasciaIlCampoVaABuonFine) {
  const GuidedRegistry schermo = apri();
  schermo.type(kIva, QStringLiteral("009"));
  auto& cerca = schermo.control<QPushButton>(kCerca);
  QWidget riquadroAperto;
  // The box that comes up under the mouse takes the release.
  ufficio.user.onBox = [&](const Box&) { QTest::mouseRelease(&riquadroAperto, Qt::LeftButton); };
  QTest::mousePress(&cerca, Qt::LeftButton);
  ufficio.user.onBox = nullptr;
  EXPECT_TRUE(QTest::qWaitFor([&] { return schermo.codes() == QStringList{QStringLiteral("3")}; }));
  EXPECT_FALSE(cerca.isDown());
  attendi({kIvaErrata});
}

TEST_F(SchermoAnagrafica, UnClicInteroSulComandoLoDaUnaVoltaSola) {
  const GuidedRegistry schermo = apri();
  schermo.type(kIva, QStringLiteral("009"));
  ufficio.user.answers(Answer::Cancel);
  schermo.click(kNuovo);
  QCoreApplication::processEvents();
  attendi({kIvaErrata});
  EXPECT_EQ(schermo.text(kCodice), QStringLiteral("10"));
  schermo.click(kPulisci);
  schermo.clickRow(2);
  schermo.click(kElimina);
  attendi({kDomanda});
}

TEST_F(SchermoAnagrafica, UnApostrofoSoloSiSuggerisceDoppioSottoIlCampo) {
  const GuidedRegistry schermo = apri();
  for (const QString& nome : {kNome, kIndirizzo, kCitta, kNote}) {
    schermo.type(nome, QStringLiteral("l'"));
    EXPECT_EQ(schermo.hint(nome), QStringLiteral("Un apostrofo si scrive doppio: ''"));
    QTest::keyClicks(&schermo.control(nome), QStringLiteral("'oro"));
    EXPECT_EQ(schermo.hint(nome), QString());
  }
}

TEST_F(SchermoAnagrafica, IlConteggioDeiCaratteriStaSulCampoCheSiScrive) {
  const GuidedRegistry schermo = apri();
  schermo.type(kNome, QStringLiteral("bar"));
  EXPECT_EQ(schermo.text(QStringLiteral("Conta_") + kNome), QStringLiteral("3/40"));
  schermo.type(kIva, QStringLiteral("00905"));
  EXPECT_EQ(schermo.text(QStringLiteral("Conta_") + kIva), QStringLiteral("5/11"));
  EXPECT_EQ(schermo.text(QStringLiteral("Conta_") + kNome), QString());
}

TEST_F(SchermoAnagrafica, LoStatoNonSiScrive) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(3);
  QTest::keyClicks(&schermo.control(kStato), QStringLiteral("0"));
  EXPECT_EQ(schermo.text(kStato), QStringLiteral("*"));
}

// Search.

TEST_F(SchermoAnagrafica, LaRicercaTrovaEDiceQuanti) {
  const GuidedRegistry schermo = apri();
  schermo.type(kNome, QStringLiteral("bar"));
  schermo.click(kCerca);
  EXPECT_EQ(schermo.codes(), QStringList{QStringLiteral("3")});
  EXPECT_EQ(schermo.said(), QStringLiteral("1 cliente"));
  EXPECT_EQ(schermo.text(kQuanti), QStringLiteral("00002"));
  schermo.type(kNome, QStringLiteral("zz"));
  schermo.key(Qt::Key_Return);
  EXPECT_EQ(schermo.row(1), QStringLiteral("||||||"));
  EXPECT_EQ(schermo.row(0),
            QStringLiteral("CODICE CLIENTE|STATO|RAGIONE SOCIALE|INDIRIZZO|CITTA|PARTITA IVA|NOTE"));
  EXPECT_EQ(schermo.said(), QStringLiteral("Nessun cliente trovato"));
}

namespace {

/// Counts the paintings of a widget.
class Pitture : public QObject {
 public:
  explicit Pitture(QWidget& di) { di.installEventFilter(this); }
  int quante = 0;
  bool eventFilter(QObject*, QEvent* evento) override {
    quante += evento->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
};

}  // namespace

TEST_F(SchermoAnagrafica, LaRicercaDipingeLElencoUnaVoltaSola) {
  prepara();
  for (int codice = 20; codice < 60; ++codice) ufficio.customer(codice, QStringLiteral("CLIENTE"));
  const GuidedRegistry schermo(ufficio);
  schermo.type(kNome, QStringLiteral("cliente"));
  QCoreApplication::processEvents();
  const Pitture pitture(*schermo.grid().viewport());
  schermo.control<QPushButton>(kCerca).click();
  QCoreApplication::processEvents();
  EXPECT_EQ(schermo.codes().size(), 40);
  EXPECT_EQ(pitture.quante, 1);
}

TEST_F(SchermoAnagrafica, UnApostrofoNellaRicercaTerminaIlProgramma) {
  const GuidedRegistry schermo = apri();
  schermo.type(kNome, QStringLiteral("L'ORO"));
  schermo.click(kCerca);
  attendi(
      {criticalBox(QStringLiteral("Vmd_Cerca_Click: uscita dal programma per condizione anomala 3075 - *"))});
  EXPECT_TRUE(ufficio.user.terminated());
}

// New and store.

TEST_F(SchermoAnagrafica, NuovoSvuotaDaIlCodiceECambiaModo) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  schermo.click(kNuovo);
  EXPECT_EQ(schermo.fields(), QStringLiteral("10||||||"));
  EXPECT_EQ(schermo.mode(), QStringLiteral("M-"));
  EXPECT_EQ(schermo.focus(), kNome);
  EXPECT_EQ(schermo.primary(), kMemorizza);
  EXPECT_EQ(schermo.said(), QStringLiteral("Nuovo cliente 10: riempire i campi e memorizzare"));
  EXPECT_EQ(schermo.grid().RowInFields(), 0);
  schermo.clickRow(2);
  EXPECT_EQ(schermo.mode(), QStringLiteral("M-")) << "a picked row does not change it";
}

TEST_F(SchermoAnagrafica, InUnArchivioVuotoIlPrimoCodiceEUno) {
  ufficio.openArchive();
  ufficio.execute(QStringLiteral("DELETE FROM TAB_ANAG_CLIENTI"));
  const GuidedRegistry schermo(ufficio);
  schermo.click(kNuovo);
  EXPECT_EQ(schermo.text(kCodice), QStringLiteral("1"));
}

TEST_F(SchermoAnagrafica, DopoIlCodiceDuecentocinquantaNuovoDiceCheNonCEPosto) {
  prepara();
  for (const int codice : {250, 65535}) {
    ufficio.customer(codice, QStringLiteral("X"));
    const GuidedRegistry schermo(ufficio);
    schermo.click(kNuovo);
    attendi({kCodiceRifiutato});
    EXPECT_EQ(schermo.text(kCodice), QString());
    EXPECT_EQ(schermo.focus(), kNome);
    EXPECT_EQ(schermo.mode(), QStringLiteral("M-"));
    EXPECT_EQ(schermo.said(),
              QStringLiteral("Dopo il codice più alto non c'è posto: scrivere un codice libero"));
    schermo.click(kEsci);
  }
}

TEST_F(SchermoAnagrafica, UnNuovoClienteSiMemorizzaConIClicEITasti) {
  const GuidedRegistry schermo = apri();
  schermo.click(kNuovo);
  riempi(schermo, QStringLiteral("caffè à la page"), kAltra);
  EXPECT_EQ(schermo.said(), QStringLiteral("Modifiche non salvate: nuovo cliente 10"));
  schermo.click(kMemorizza);
  EXPECT_EQ(riga(10), QStringLiteral("10|CAFFÈ À LA PAGE|VIA ROMA 1|FORLÌ|01114601006||1"));
  EXPECT_EQ(schermo.fields(), QStringLiteral("||||||"));
  EXPECT_EQ(schermo.codes().last(), QStringLiteral("10"));
  EXPECT_EQ(schermo.text(kQuanti), QStringLiteral("00003"));
  EXPECT_EQ(schermo.mode(), QStringLiteral("--"));
  EXPECT_EQ(schermo.said(), QStringLiteral("Memorizzato: 10 CAFFÈ À LA PAGE"));
  EXPECT_EQ(schermo.kind(), OutcomeBar::Kind::Done);
  EXPECT_EQ(schermo.focus(), kNuovo);
  attendi({});
}

TEST_F(SchermoAnagrafica, InvioECtrlSMemorizzanoIlNuovo) {
  const GuidedRegistry schermo = apri();
  schermo.click(kNuovo);
  riempi(schermo, QStringLiteral("UNO"), kAltra);
  schermo.key(Qt::Key_Return);
  EXPECT_EQ(riga(10), QStringLiteral("10|UNO|VIA ROMA 1|FORLÌ|01114601006||1"));
  schermo.click(kNuovo);
  riempi(schermo, QStringLiteral("DUE"), QStringLiteral("00743110157"));
  schermo.control(Qt::Key_S);
  EXPECT_EQ(riga(11), QStringLiteral("11|DUE|VIA ROMA 1|FORLÌ|00743110157||1"));
}

TEST_F(SchermoAnagrafica, UnNuovoIncompletoPortaAlCampoCheManca) {
  const GuidedRegistry schermo = apri();
  schermo.click(kNuovo);
  schermo.type(kNome, QStringLiteral("UNO"));
  schermo.click(kMemorizza);
  attendi({kObbligatori});
  EXPECT_EQ(schermo.focus(), kIndirizzo);
  EXPECT_EQ(schermo.said(), kObbligatori.text);
  EXPECT_EQ(schermo.mode(), QStringLiteral("M-"));
}

TEST_F(SchermoAnagrafica, UnaPartitaIVASbagliataNonSiMemorizza) {
  const GuidedRegistry schermo = apri();
  schermo.click(kNuovo);
  riempi(schermo, QStringLiteral("UNO"), kErrata);
  schermo.key(Qt::Key_Return);
  attendi({kIvaErrata});
  EXPECT_EQ(schermo.focus(), kIva);
  EXPECT_EQ(riga(10), QString());
}

TEST_F(SchermoAnagrafica, UnApostrofoNelNuovoLasciaICampiEMetteLoStato) {
  const GuidedRegistry schermo = apri();
  schermo.click(kNuovo);
  riempi(schermo, QStringLiteral("L'ORO"), kAltra);
  schermo.click(kMemorizza);
  attendi({criticalBox(QStringLiteral("Errore nell' inserimento cliente Errore n° 3075\n*"))});
  EXPECT_EQ(schermo.fields(), QStringLiteral("10| |L'ORO|via Roma 1|Forlì|01114601006|"));
  EXPECT_EQ(schermo.kind(), OutcomeBar::Kind::Failed);
  EXPECT_EQ(schermo.mode(), QStringLiteral("M-"));
  EXPECT_EQ(riga(10), QString());
}

TEST_F(SchermoAnagrafica, LAnonimoNonSiMemorizzaNeSiModificaEICampiSiVuotano) {
  prepara();
  ufficio.execute(
      QStringLiteral(
          "UPDATE TAB_ANAG_CLIENTI SET Ragione_Sociale='A',Indirizzo='A',Citta='A',Partita_IVA='") +
      kAltra + QStringLiteral("' WHERE ID_Cliente =0"));
  const GuidedRegistry schermo(ufficio);
  schermo.click(kTutti);
  for (const QString& comando : {kMemorizza, kModifica}) {
    schermo.clickRow(1);
    schermo.type(kNome, QStringLiteral("B"));
    schermo.click(comando);
    attendi({kAnonimo});
    EXPECT_EQ(schermo.fields(), QStringLiteral("||||||"));
  }
  EXPECT_EQ(riga(0), QStringLiteral("0|A|A|A|01114601006||1"));
}

// Change.

TEST_F(SchermoAnagrafica, UnaModificaSiSalvaELAsteriscoSparisce) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(3);
  EXPECT_EQ(schermo.text(kStato), QStringLiteral("*"));
  riempi(schermo, QStringLiteral("nuova srl"), kAltra);
  schermo.click(kModifica);
  EXPECT_EQ(riga(9), QStringLiteral("9|NUOVA SRL|VIA ROMA 1|FORLÌ|01114601006||1"));
  EXPECT_EQ(schermo.row(3), QStringLiteral("9| |NUOVA SRL|VIA ROMA 1|FORLÌ|01114601006|"));
  EXPECT_EQ(schermo.fields(), QStringLiteral("9| |NUOVA SRL|VIA ROMA 1|FORLÌ|01114601006|"));
  EXPECT_EQ(schermo.said(), QStringLiteral("Salvato: 9 NUOVA SRL"));
  EXPECT_EQ(schermo.grid().Row(), 3);
  EXPECT_EQ(schermo.primary(), kCerca);
  EXPECT_EQ(schermo.mode(), QStringLiteral("-S"));
}

TEST_F(SchermoAnagrafica, CtrlSSalvaLaModifica) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  schermo.type(kNote, QStringLiteral("sconto"));
  schermo.control(Qt::Key_S);
  EXPECT_EQ(riga(3), QStringLiteral("3|BAR SPORT|VIA PO 1|TORINO|00905811006|SCONTO|1"));
}

TEST_F(SchermoAnagrafica, UnaModificaFallitaLasciaICampiELElenco) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  schermo.type(kCitta, QStringLiteral("L'AQUILA"));
  schermo.click(kModifica);
  attendi({criticalBox(QStringLiteral("Errore nella modifica dati cliente Errore n° 3075*"))});
  EXPECT_EQ(schermo.text(kCitta), QStringLiteral("L'AQUILA"));
  EXPECT_EQ(schermo.row(2), QStringLiteral("3| |BAR SPORT|VIA PO 1|TORINO|00905811006|PAGA A 30 GG"));
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(SchermoAnagrafica, ModificareUnCodiceCheNonCELoDice) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  schermo.control<QLineEdit>(kCodice).selectAll();
  QTest::keyClicks(&schermo.control(kCodice), QStringLiteral("77"));
  schermo.type(kIva, kAltra);
  schermo.click(kModifica);
  EXPECT_EQ(schermo.said(), QStringLiteral("Non salvato: nessun cliente ha il codice 77"));
  EXPECT_EQ(schermo.kind(), OutcomeBar::Kind::Warning);
  EXPECT_EQ(schermo.fields(), QStringLiteral("||||||"));
}

// Delete.

TEST_F(SchermoAnagrafica, EliminaSenzaSceltaLoDice) {
  const GuidedRegistry schermo = apri();
  schermo.click(kElimina);
  attendi({kNessuno});
  EXPECT_EQ(schermo.said(), kNessuno.text);
}

TEST_F(SchermoAnagrafica, EliminaLAnonimoSiRifiuta) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(1);
  schermo.click(kElimina);
  attendi({kAnonimo});
  EXPECT_EQ(schermo.text(kCodice), QStringLiteral("0"));
}

TEST_F(SchermoAnagrafica, EliminaConOkTogliIlClienteESvuotaICampi) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  ufficio.user.answers(Answer::Ok);
  schermo.click(kElimina);
  attendi({kDomanda});
  EXPECT_EQ(schermo.codes(), (QStringList{QStringLiteral("0"), QStringLiteral("9")}));
  EXPECT_EQ(schermo.fields(), QStringLiteral("||||||"));
  EXPECT_EQ(schermo.text(kQuanti), QStringLiteral("00001"));
  EXPECT_EQ(schermo.said(), QStringLiteral("Eliminato: 3 BAR SPORT"));
}

TEST_F(SchermoAnagrafica, EliminaSenzaOkNonTogliNulla) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  ufficio.user.answers(Answer::Cancel);
  schermo.click(kElimina);
  attendi({kDomanda});
  EXPECT_EQ(schermo.codes().size(), 3);
  EXPECT_EQ(schermo.text(kNome), QStringLiteral("BAR SPORT"));
  EXPECT_EQ(schermo.said(), QStringLiteral("Eliminazione annullata: 3 BAR SPORT"));
  EXPECT_EQ(ufficio.workspace.level(), 0);
}

TEST_F(SchermoAnagrafica, EliminaChiHaFattureSiRifiuta) {
  prepara();
  ufficio.invoice(3, QStringLiteral("2024/1"), QStringLiteral("05/03/2024 10:20:30"), 100);
  const GuidedRegistry schermo(ufficio);
  schermo.clickRow(2);
  schermo.click(kElimina);
  attendi(
      {box(QStringLiteral("Attenzione non e' possibile eliminare il cliente [3] in quanto ha delle fatture "
                          "associate !!!"),
           Icon::Warning)});
  EXPECT_EQ(schermo.codes().size(), 3);
}

// The modes and the other commands.

TEST_F(SchermoAnagrafica, ClearSvuotaSpegneEPortaAllaGriglia) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  schermo.type(kNote, QStringLiteral("x"));
  schermo.click(kPulisci);
  EXPECT_EQ(schermo.fields(), QStringLiteral("||||||"));
  EXPECT_EQ(schermo.mode(), QStringLiteral("--"));
  EXPECT_EQ(schermo.focus(), kGriglia);
  EXPECT_EQ(schermo.said(), QStringLiteral("Modifiche non salvate e cancellate: 3 BAR SPORT"));
  EXPECT_EQ(schermo.control(kModifica).toolTip(),
            QStringLiteral("«Visualizza Tutti» (F5) riattiva le modifiche"));
  EXPECT_EQ(schermo.control(kMemorizza).toolTip(), QStringLiteral("Prima «Nuovo», poi si memorizza"));
  attendi({});
  schermo.control(Qt::Key_S);
  EXPECT_EQ(schermo.codes().size(), 3) << "both are off";
}

TEST_F(SchermoAnagrafica, VisualizzaTuttiRileggeERiaccendeEntrambi) {
  const GuidedRegistry schermo = apri();
  schermo.type(kNome, QStringLiteral("bar"));
  schermo.click(kCerca);
  schermo.click(kPulisci);
  ufficio.customer(4, QStringLiteral("NUOVO"));
  bool ferma = false;
  ufficio.user.onPass = [&] { ferma = !schermo.grid().Redraw(); };
  schermo.key(Qt::Key_F5);
  ufficio.user.onPass = nullptr;
  EXPECT_TRUE(ferma);
  EXPECT_TRUE(schermo.grid().Redraw());
  EXPECT_EQ(schermo.codes().size(), 4);
  EXPECT_EQ(schermo.mode(), QStringLiteral("MS"));
  EXPECT_EQ(schermo.text(kQuanti), QStringLiteral("00003"));
}

TEST_F(SchermoAnagrafica, AbilitaTastiEIlSuoGemelloSeguonoIlNumero) {
  const GuidedRegistry schermo = apri();
  auto& anagrafica = static_cast<Form_AnagraficaClienti&>(schermo.window());
  anagrafica.DisabilitaTasti(2);
  EXPECT_EQ(schermo.mode(), QStringLiteral("--"));
  anagrafica.AbilitaTasti(0);
  EXPECT_EQ(schermo.mode(), QStringLiteral("M-"));
  anagrafica.AbilitaTasti(1);
  EXPECT_EQ(schermo.mode(), QStringLiteral("MS"));
  anagrafica.DisabilitaTasti(0);
  EXPECT_EQ(schermo.mode(), QStringLiteral("-S"));
  anagrafica.DisabilitaTasti(1);
  EXPECT_EQ(schermo.mode(), QStringLiteral("--"));
  anagrafica.AbilitaTasti(-1);
  EXPECT_EQ(schermo.mode(), QStringLiteral("MS"));
}

TEST_F(SchermoAnagrafica, LExportScriveLeColonneSenzaIlCodice) {
  const GuidedRegistry schermo = apri();
  const QString file = ufficio.folder.file(QStringLiteral("clienti.csv"));
  ufficio.user.chooses(file);
  schermo.click(kTutti);
  schermo.control(Qt::Key_E);
  attendi(
      {box(QStringLiteral("Creazione del file ") + file + QStringLiteral(" terminata."), Icon::Information)});
  EXPECT_EQ(ufficio.folder.read(QStringLiteral("clienti.csv")),
            QByteArray(" ;;;;;; \r\n ;BAR SPORT;VIA PO 1;TORINO;00905811006;PAGA A 30 GG; \r\n*;;;;;; \r\n"));
  ASSERT_EQ(ufficio.user.requests().size(), 1U);
  EXPECT_EQ(ufficio.user.requests().front().filter, QStringLiteral("csv (*.csv)|*.csv"));
  EXPECT_EQ(schermo.said(), QStringLiteral("Esportate 3 righe in clienti.csv"));
}

TEST_F(SchermoAnagrafica, LeFattureDelClienteSiApronoColSuoFiltroCheAlRitornoEAbbassato) {
  const GuidedRegistry schermo = apri();
  customers::FiltroFatture visto;
  ufficio.screens.registra(kFatture, [](Contesto&) { return new QDialog; });
  schermo.clickRow(2);
  withModal([&] { schermo.click(kMostraFatture); },
            [&](QWidget& archivio) {
              visto = customers::statoClienti().filtro;
              archivio.close();
            });
  EXPECT_TRUE(visto.acceso);
  EXPECT_EQ(visto.partitaIVA, kVera);
  EXPECT_EQ(visto.ragioneSociale, QStringLiteral("BAR SPORT"));
  EXPECT_EQ(visto.codice, QStringLiteral("3"));
  EXPECT_FALSE(customers::statoClienti().filtro.acceso);
  EXPECT_TRUE(schermo.alive());
}

TEST_F(SchermoAnagrafica, LeFattureSonoDelCursoreENonDeiCampi) {
  const GuidedRegistry schermo = apri();
  customers::FiltroFatture visto;
  ufficio.screens.registra(kFatture, [](Contesto&) { return new QDialog; });
  schermo.clickRow(2);
  schermo.grid().setCell(3, 0);
  withModal([&] { schermo.click(kMostraFatture); },
            [&](QWidget& archivio) {
              visto = customers::statoClienti().filtro;
              archivio.close();
            });
  EXPECT_EQ(visto.codice, QStringLiteral("9"));
}

TEST_F(SchermoAnagrafica, SeLArchivioFattureNonSiApreIlFiltroEAbbassato) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  schermo.click(kMostraFatture);
  EXPECT_EQ(ufficio.user.takeBoxes().size(), 1U);
  EXPECT_FALSE(customers::statoClienti().filtro.acceso);
}

TEST_F(SchermoAnagrafica, SenzaUnaRigaCorrenteLeFattureNonSiAprono) {
  const GuidedRegistry schermo = apri();
  schermo.type(kNome, QStringLiteral("zz"));
  schermo.click(kCerca);
  schermo.click(kMostraFatture);
  EXPECT_EQ(schermo.said(), QStringLiteral("Prima scegliere un cliente nell'elenco"));
  EXPECT_FALSE(customers::statoClienti().filtro.acceso);
}

TEST_F(SchermoAnagrafica, EsciRiportaAllaGestioneEdInvioSuEsciNo) {
  ufficio.screens.registra(QStringLiteral("Form_GestioneClienti"), [](Contesto&) { return new QWidget; });
  const GuidedRegistry schermo = apri();
  schermo.control(kEsci).setFocus();
  schermo.key(Qt::Key_Return);
  EXPECT_TRUE(schermo.alive());
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  ASSERT_NE(ufficio.screens.trova(QStringLiteral("Form_GestioneClienti")), nullptr);
  EXPECT_TRUE(varGlobal().DB_Clienti.isOpen());
}

TEST_F(SchermoAnagrafica, ChiHaFrettaDuranteUnRiempimentoNonFaNulla) {
  const GuidedRegistry schermo = apri();
  schermo.clickRow(2);
  ufficio.user.onPass = [&] { schermo.impatience(kElimina); };
  schermo.click(kTutti);
  ufficio.user.onPass = nullptr;
  QCoreApplication::processEvents();
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(schermo.codes().size(), 3);
}

// Keys and looks.

TEST_F(SchermoAnagrafica, CtrlFVaAlNomeEITastiStannoNeiSuggerimenti) {
  const GuidedRegistry schermo = apri();
  schermo.control(kNote).setFocus();
  schermo.control(Qt::Key_F);
  EXPECT_EQ(schermo.focus(), kNome);
  const auto finisce = [&](const QString& nome, const char* tasto) {
    return schermo.control(nome).toolTip().endsWith(QLatin1String(tasto));
  };
  EXPECT_TRUE(finisce(kModifica, "(Ctrl+S)"));
  EXPECT_TRUE(finisce(kTutti, "(F5)"));
  EXPECT_TRUE(finisce(kExport, "(Ctrl+E)"));
  EXPECT_TRUE(finisce(kNome, "(Ctrl+F)"));
  EXPECT_TRUE(finisce(kEsci, "(Esc)"));
  schermo.click(kNuovo);
  EXPECT_TRUE(finisce(kMemorizza, "(Ctrl+S)"));
}

TEST_F(SchermoAnagrafica, IlTabulatoreSegueLOrdineSulloSchermo) {
  const GuidedRegistry schermo = apri();
  schermo.click(kTutti);
  schermo.control(kCodice).setFocus();
  QStringList giro;
  for (int i = 0; i < 17; ++i) {
    giro += schermo.focus();
    schermo.key(Qt::Key_Tab);
  }
  EXPECT_EQ(giro,
            (QStringList{kCodice, kNome, kIva, kIndirizzo, kCitta, kNote, kCerca, kPulisci, kNuovo,
                         kMemorizza, kModifica, kElimina, kGriglia, kTutti, kMostraFatture, kExport, kEsci}));
}

namespace {

/// The screen so wide, and what follows from it done.
void largo(const GuidedRegistry& schermo, int pixel) {
  schermo.window().resize(pixel, 732);
  for (int giro = 0; giro < 3; ++giro) QCoreApplication::processEvents();
}

bool intero(const FlexGrid& griglia, int riga, int colonna) {
  return griglia.columnWidth(colonna) >=
         griglia.sizeHintForIndex(griglia.model()->index(riga - 1, colonna)).width();
}

}  // namespace

TEST_F(SchermoAnagrafica, CioCheINomiLascianoVaAiTestiCheLeColonneTagliano) {
  prepara();
  ufficio.execute(
      QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (20,'PANIFICIO FRATELLI ROSSI DI ROSSI MARIO',"
                     "'VIA DELLA LIBERAZIONE 125 INTERNO 4 SCALA B','SAN GIOVANNI IN PERSICETO',"
                     "'00743110157','PAGA A 60 GIORNI FINE MESE CON BONIFICO',1)"));
  const GuidedRegistry schermo(ufficio);
  const FlexGrid& griglia = schermo.grid();
  largo(schermo, 1900);
  for (const int colonna : {2, 3, 4, 5, 6}) EXPECT_TRUE(intero(griglia, 4, colonna)) << colonna;
  EXPECT_EQ(griglia.horizontalScrollBar()->maximum(), 0);
  // Found or listed again, the texts have the room that they had.
  schermo.type(kNome, QStringLiteral("pan"));
  schermo.click(kCerca);
  for (const int colonna : {2, 3, 4, 6}) EXPECT_TRUE(intero(griglia, 1, colonna)) << colonna;
  schermo.click(kTutti);
  for (const int colonna : {2, 3, 4, 6}) EXPECT_TRUE(intero(griglia, 4, colonna)) << colonna;
  // With less room the name comes first.
  const int note = griglia.columnWidth(6);
  largo(schermo, 1250);
  EXPECT_TRUE(intero(griglia, 4, 2));
  EXPECT_LT(griglia.columnWidth(6), note);
  EXPECT_EQ(griglia.horizontalScrollBar()->maximum(), 0);
  largo(schermo, 1016);
  EXPECT_EQ(griglia.horizontalScrollBar()->maximum(), 0);
  largo(schermo, 1900);
  EXPECT_EQ(griglia.columnWidth(6), note);
}

TEST_F(SchermoAnagrafica, UnaColonnaTrascinataRestaComELaVuoleLaPersona) {
  prepara();
  ufficio.execute(
      QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (20,'ROSSI','VIA DELLA LIBERAZIONE 125 INTERNO 4',"
                     "'LODI','00743110157','PAGA A 60 GIORNI FINE MESE',1)"));
  const GuidedRegistry schermo(ufficio);
  largo(schermo, 1900);
  schermo.grid().horizontalHeader()->resizeSection(3, 50);
  schermo.click(kTutti);
  largo(schermo, 1800);
  EXPECT_EQ(schermo.grid().columnWidth(3), 50);
  EXPECT_TRUE(intero(schermo.grid(), 4, 6));
}

/// The screen in a font of the parameter's size, in the program's look.
class AnagraficaNelCarattere : public SchermoAnagrafica, public testing::WithParamInterface<int> {
 private:
  const InFont carattere_{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Punti, AnagraficaNelCarattere, testing::Values(9, 11, 12));

TEST_P(AnagraficaNelCarattere, NonPassaMilleventiquattroENonTagliaScritte) {
  const GuidedRegistry schermo = apri();
  schermo.window().resize(1016, 732);
  for (int giro = 0; giro < 3; ++giro) QCoreApplication::processEvents();
  EXPECT_LE(schermo.window().minimumSizeHint().width(), 1016);
  EXPECT_EQ(schermo.window().size(), QSize(1016, 732));
  for (const QPushButton* tasto : schermo.window().findChildren<QPushButton*>()) {
    EXPECT_GE(tasto->width(), tasto->sizeHint().width()) << tasto->objectName().toStdString();
    EXPECT_TRUE(
        schermo.window().rect().contains(QRect(tasto->mapTo(&schermo.window(), QPoint()), tasto->size())))
        << tasto->objectName().toStdString();
  }
  for (const QLabel* scritta : schermo.window().findChildren<QLabel*>()) {
    if (!scritta->isVisible() || scritta->wordWrap() || scritta->text().isEmpty()) continue;
    EXPECT_GE(scritta->width(), scritta->sizeHint().width()) << scritta->text().toStdString();
  }
  const auto bordoDestro = [&](const QString& campo) {
    const QWidget& questo = schermo.control(campo);
    return questo.mapTo(&schermo.window(), QPoint(questo.width(), 0)).x();
  };
  EXPECT_EQ(bordoDestro(kIva), bordoDestro(kNote)) << "the last field of each line ends where the card does";
  const FlexGrid& griglia = schermo.grid();
  EXPECT_EQ(griglia.horizontalScrollBar()->maximum(), 0);
  for (const int colonna : {0, 1, 5})
    EXPECT_GE(griglia.columnWidth(colonna),
              griglia.sizeHintForIndex(griglia.model()->index(1, colonna)).width())
        << colonna;
  schermo.clickRow(2);
  for (const QString& nome : {kCodice, kIva, kQuanti}) {
    const auto& campo = schermo.control<QLineEdit>(nome);
    EXPECT_GE(campo.width(), campo.fontMetrics().horizontalAdvance(campo.text()) + 18) << nome.toStdString();
  }
}
