#include "sales/Form_ArchivioVenduto.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include "articles/article_database.h"
#include "controls/FlexGrid.h"
#include "controls/outcome_bar.h"
#include "sales/sales_ledger.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

namespace {

const QString kSchermo = QStringLiteral("Form_ArchivioVenduto");
const QString kCerca = QStringLiteral("Cmd_Cerca");
const QString kReset = QStringLiteral("Cmd_Reset");
const QString kTutti = QStringLiteral("Cmd_Refresh");
const QString kExport = QStringLiteral("Cmd_Export");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kCodEan = QStringLiteral("vkTextBoxCodEan");
const QString kDescrizione = QStringLiteral("vkTextBoxDescrizione");

const Box kGrave = box(QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. "
                                      "PROCEDURA ABORTITA !!!"),
                       Icon::Critical);
const Box kSenzaSconto = box(
    QStringLiteral("3265 - Elemento 'Sconto_giornaliero' non trovato in questo insieme."), Icon::Critical);

class ArchivioVenduto : public testing::Test {
 protected:
  ArchivioVenduto() {
    bottega.screens.registra<Form_ArchivioVenduto>();
    bottega.openArchive();
  }

  static FlexGrid& griglia(const GuidedScreen& schermo) {
    return schermo.control<FlexGrid>(QStringLiteral("MSFlexGridVenduto"));
  }
  static QStringList riga(const GuidedScreen& schermo, int numero) {
    QStringList testi;
    for (int c = 0; c < 9; ++c) testi.append(griglia(schermo).TextMatrix(numero, c));
    return testi;
  }
  static QStringList colonna(const GuidedScreen& schermo, int numero) {
    QStringList testi;
    for (int r = 1; r < griglia(schermo).Rows(); ++r) testi.append(griglia(schermo).TextMatrix(r, numero));
    return testi;
  }
  static void scegli(const GuidedScreen& schermo, const QString& lista, const QString& voce) {
    auto& combo = schermo.control<QComboBox>(lista);
    combo.setFocus();
    QTest::keyClicks(&combo, voce);
    ASSERT_EQ(combo.currentText(), voce);
  }
  static void scegliData(const GuidedScreen& schermo, const QString& finale, const QString& yyyymmdd) {
    scegli(schermo, QStringLiteral("CmbAnno") + finale, yyyymmdd.left(4));
    scegli(schermo, QStringLiteral("CmbMese") + finale, yyyymmdd.mid(4, 2));
    scegli(schermo, QStringLiteral("CmbGiorno") + finale, yyyymmdd.mid(6, 2));
  }
  /// A period around every row.
  static void periodoLargo(const GuidedScreen& schermo) {
    scegliData(schermo, {}, QStringLiteral("20000101"));
    scegliData(schermo, QStringLiteral("Fine"), QStringLiteral("21001231"));
  }
  static void scrivi(const GuidedScreen& schermo, const QString& casella, const QString& testo) {
    auto& campo = schermo.control<QLineEdit>(casella);
    campo.setFocus();
    campo.selectAll();
    QTest::keyClicks(&campo, testo);
  }
  static QString detto(const GuidedScreen& schermo) {
    return schermo.control<OutcomeBar>("BarraEsito").text();
  }
  static OutcomeBar::Kind genere(const GuidedScreen& schermo) {
    return schermo.control<OutcomeBar>("BarraEsito").kind();
  }
  static void premi(const GuidedScreen& schermo, Qt::Key tasto) {
    QTest::keyClick(schermo.window().focusWidget(), tasto, Qt::ControlModifier);
  }
  static void clicCella(const GuidedScreen& schermo, int riga, int colonna) {
    const FlexGrid& lista = griglia(schermo);
    const QRect cella = lista.visualRect(lista.model()->index(riga - 1, colonna));
    QTest::mouseClick(lista.viewport(), Qt::LeftButton, {}, cella.center());
  }
  /// By the fixture's clock.
  static QString oggi() { return QStringLiteral("20240307"); }
  QByteArray esportato(const GuidedScreen& schermo) {
    const QString file = bottega.folder.file(QStringLiteral("venduto.csv"));
    bottega.user.chooses(file);
    schermo.click(kExport);
    expectBoxes(bottega, {box(QStringLiteral("Creazione del file ") + file + QStringLiteral(" terminata."),
                              Icon::Information)});
    return bottega.folder.read(QStringLiteral("venduto.csv"));
  }

  WithLocale locale{"C"};
  BackRoom bottega;
};

// Opening.

TEST_F(ArchivioVenduto, AllAperturaSonoScrittiTitoloCaptionETestate) {
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Archivio Venduto"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelDataInizio")), QStringLiteral("Data Inizio"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelDataFine")), QStringLiteral("Data Fine"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelCodEan")), QStringLiteral("Codice EAN"));
  EXPECT_EQ(schermo.text(QStringLiteral("LabelDescrizione")), QStringLiteral("Descrizione"));
  EXPECT_EQ(schermo.text(kCerca), QStringLiteral("Cerca"));
  EXPECT_EQ(schermo.text(kReset), QStringLiteral("Pulisci"));
  EXPECT_EQ(schermo.text(kTutti), QStringLiteral("Visualizza Tutti"));
  EXPECT_EQ(schermo.text(kExport), QStringLiteral("Export Venduto"));
  EXPECT_EQ(schermo.text(kEsci), QStringLiteral("Esci"));
  EXPECT_EQ(
      riga(schermo, 0),
      (QStringList{QStringLiteral("Nr."), QStringLiteral("DATA"), QStringLiteral("COD. EAN"),
                   QStringLiteral("COD. ART."), QStringLiteral("DESCRIZIONE "), QStringLiteral("PR. MEDIO"),
                   QStringLiteral("N. PEZZI"), QStringLiteral("IMP. GIORN."), QStringLiteral("SC. GIORN.")}));
  EXPECT_EQ(griglia(schermo).horizontalHeader()->height(), 40);
  EXPECT_EQ(schermo.window().focusWidget()->objectName(), QStringLiteral("CmbGiorno"));
}

TEST_F(ArchivioVenduto, ISelettoriMostranoOggiEGliOrariLaPrimaVoce) {
  const GuidedScreen schermo(bottega, kSchermo);
  for (const QString& finale : {QString(), QStringLiteral("Fine")}) {
    EXPECT_EQ(schermo.control<QComboBox>(QStringLiteral("CmbAnno") + finale).currentText() +
                  schermo.control<QComboBox>(QStringLiteral("CmbMese") + finale).currentText() +
                  schermo.control<QComboBox>(QStringLiteral("CmbGiorno") + finale).currentText(),
              oggi());
    const auto& anni = schermo.control<QComboBox>(QStringLiteral("CmbAnno") + finale);
    EXPECT_EQ(anni.itemText(0), QStringLiteral("2000"));
    EXPECT_EQ(anni.itemText(anni.count() - 1), QStringLiteral("2100"));
    for (const char* nome : {"CmbOra", "CmbMin", "CmbSec"})
      EXPECT_EQ(schermo.control<QComboBox>(QLatin1String(nome) + finale).currentText(), QStringLiteral("00"));
  }
}

TEST_F(ArchivioVenduto, SenzaVenditeRestaUnaRigaVuota) {
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).Rows(), 2);
  EXPECT_EQ(riga(schermo, 1).join(QString()), QString());
}

TEST_F(ArchivioVenduto, LeRigheSonoPerGiornoECodiceConTreRigheInPiu) {
  enter(bottega, {{.date = QStringLiteral("20261121"), .ean = QStringLiteral("A")},
                  {.date = QStringLiteral("20261120"), .ean = QStringLiteral("B")},
                  {.date = QStringLiteral("20261120"),
                   .ean = QStringLiteral("A"),
                   .amount = 100,
                   .pieces = 3,
                   .discount = 10}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).Rows(), 6);
  EXPECT_EQ(riga(schermo, 1),
            (QStringList{QStringLiteral("1"), QStringLiteral("20/11/2026"), QStringLiteral("A"),
                         QStringLiteral("8001120000016"), QStringLiteral("PANE"), QStringLiteral("0.333"),
                         QStringLiteral("3"), QStringLiteral("1.000"), QStringLiteral("0.100")}));
  EXPECT_EQ(colonna(schermo, 2).mid(0, 3),
            (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("A")}));
  EXPECT_EQ(riga(schermo, 4).join(u'|'), QStringLiteral("| |||||||"));
  EXPECT_EQ(riga(schermo, 5).join(u'|'), QStringLiteral("|TOTALE||||2.833|7.000|6.000|0.100"));
  EXPECT_EQ(griglia(schermo).Row(), 1);
}

TEST_F(ArchivioVenduto, SuUnDisplayStrettoLElencoCominciaDalNumero) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.window().resize(792, 600);
  QCoreApplication::processEvents();
  ASSERT_GT(griglia(schermo).horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(griglia(schermo).horizontalScrollBar()->value(), 0);
}

TEST_F(ArchivioVenduto, ISoliTotaliSonoGialliConTestoRosso) {
  enter(bottega, {{}, {}});
  const GuidedScreen schermo(bottega, kSchermo);
  for (int r = 1; r < griglia(schermo).Rows(); ++r)
    for (int c = 0; c < 9; ++c) {
      const bool totale = r == 4 && (c == 1 || c >= 5);
      EXPECT_EQ(griglia(schermo).CellBackColor(r, c), totale ? QColor(Qt::yellow) : QColor()) << r << c;
      EXPECT_EQ(griglia(schermo).CellForeColor(r, c), totale ? QColor(Qt::red) : QColor()) << r << c;
    }
}

TEST_F(ArchivioVenduto, INumeriSonoADestra) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  for (int c = 0; c < 9; ++c)
    EXPECT_EQ(griglia(schermo).CellAlignment(1, c).testFlag(Qt::AlignRight), c == 0 || c >= 5) << c;
}

TEST_F(ArchivioVenduto, CodiceEdEanRestanoIncrociatiComeLaRicezioneLiRegistra) {
  enter(bottega, {{.ean = QStringLiteral("ART7"), .article = QStringLiteral("8001120000016")}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 2), QStringLiteral("ART7"));
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 3), QStringLiteral("8001120000016"));
}

TEST_F(ArchivioVenduto, DueRicezioniInUnGiornoSonoDueRigheConDataECodiceUguali) {
  enter(bottega, {{.amount = 100}, {.amount = 200}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).Rows(), 5);
  EXPECT_EQ(riga(schermo, 1).mid(1, 3), riga(schermo, 2).mid(1, 3));
  EXPECT_EQ(griglia(schermo).TextMatrix(4, 7), QStringLiteral("3.000"));
}

TEST_F(ArchivioVenduto, INulliDiOgniColonnaNonFermanoLElenco) {
  enter(bottega,
        {{.date = {}, .ean = {}, .article = {}, .description = {}, .amount = {}, .discount = {}}, {}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(riga(schermo, 1).join(u'|'), QStringLiteral("1|||||0.000|2|0.000|0.000"));
  EXPECT_EQ(griglia(schermo).TextMatrix(4, 1), QStringLiteral("TOTALE"));
}

// Failures of the whole list.

TEST_F(ArchivioVenduto, UnaRigaConZeroPezziFermaLElencoDoveEArrivato) {
  enter(bottega, {{.ean = QStringLiteral("A")},
                  {.ean = QStringLiteral("B"), .pieces = 0},
                  {.ean = QStringLiteral("C")}});
  const GuidedScreen schermo(bottega, kSchermo);
  expectBoxes(bottega, {box(QStringLiteral("RiempiGridCentral 11 - Divisione per zero"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 6);
  EXPECT_EQ(riga(schermo, 1).at(7), QStringLiteral("2.500"));
  EXPECT_EQ(riga(schermo, 2).join(u'|'), QStringLiteral("2|20/11/2026|B|8001120000016|PANE||||"));
  EXPECT_EQ(riga(schermo, 3).join(QString()), QString());
  EXPECT_EQ(riga(schermo, 5).join(QString()), QString());
  EXPECT_TRUE(griglia(schermo).Redraw());
}

TEST_F(ArchivioVenduto, SenzaLaTabellaDelVendutoIlProgrammaFinisceConIlMessaggioGrave) {
  bottega.openWith({QStringLiteral("CREATE TABLE ALTRA (A TEXT)")});
  varGlobal().FlagAnomalia = kFalso;
  EXPECT_THROW(bottega.screens.mostra(kSchermo, bottega.contesto), ProgramEnded);
  expectBoxes(bottega, {kGrave});
  EXPECT_TRUE(bottega.user.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
}

TEST_F(ArchivioVenduto, AllAperturaFlagAnomaliaSiAzzera) {
  varGlobal().FlagAnomalia = kVero;
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(varGlobal().FlagAnomalia, kFalso);
}

TEST_F(ArchivioVenduto, UnaColonnaCheMancaSiDiceColNomeDellaProceduraELElencoRestaVuoto) {
  bottega.openWith({QStringLiteral("CREATE TABLE TAB_VENDUTO (Data TEXT)")});
  const GuidedScreen schermo(bottega, kSchermo);
  expectBoxes(bottega, {box(QStringLiteral("RiempiGridCentral 3061 - *"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 2);
  EXPECT_FALSE(bottega.user.terminated());
}

TEST_F(ArchivioVenduto, UnArchivioBloccatoSiDiceEVisualizzaTuttiRiprova) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  {
    const OtherProgram altro(varGlobal().NomeDB_Articoli, {QStringLiteral("BEGIN EXCLUSIVE")});
    schermo.click(kTutti);
  }
  expectBoxes(bottega, {box(QStringLiteral("RiempiGridCentral 3260 - *"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 2);
  schermo.click(kTutti);
  EXPECT_EQ(griglia(schermo).Rows(), 4);
}

// Search.

TEST_F(ArchivioVenduto, CercaDiceUnMessaggioPerOgniRigaELasciaScontoESommaComErano) {
  enter(bottega,
        {{.ean = QStringLiteral("A"), .discount = 10}, {.ean = QStringLiteral("B"), .discount = 20}});
  const GuidedScreen schermo(bottega, kSchermo);
  periodoLargo(schermo);
  schermo.click(kCerca);
  expectBoxes(bottega, {kSenzaSconto, kSenzaSconto});
  EXPECT_EQ(colonna(schermo, 8), (QStringList{QStringLiteral("0.100"), QStringLiteral("0.200"), QString(),
                                              QStringLiteral("0.000")}));
  EXPECT_EQ(griglia(schermo).TextMatrix(4, 7), QStringLiteral("5.000"));
  EXPECT_EQ(griglia(schermo).Row(), 1);
}

TEST_F(ArchivioVenduto, DopoCercaVisualizzaTuttiRidaGliSconti) {
  enter(bottega, {{.discount = 10}});
  const GuidedScreen schermo(bottega, kSchermo);
  periodoLargo(schermo);
  schermo.click(kCerca);
  expectBoxes(bottega, {kSenzaSconto});
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 8), QStringLiteral("0.000"));
  schermo.click(kTutti);
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 8), QStringLiteral("0.100"));
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 8), QStringLiteral("0.100"));
}

TEST_F(ArchivioVenduto, CercaPrendeIDueGiorniCompresiESoloQuelli) {
  enter(bottega, {{.date = QStringLiteral("20261119")},
                  {.date = QStringLiteral("20261120")},
                  {.date = QStringLiteral("20261121")},
                  {.date = QStringLiteral("20261122")}});
  const GuidedScreen schermo(bottega, kSchermo);
  scegliData(schermo, {}, QStringLiteral("20261120"));
  scegliData(schermo, QStringLiteral("Fine"), QStringLiteral("20261121"));
  schermo.click(kCerca);
  expectBoxes(bottega, {kSenzaSconto, kSenzaSconto});
  EXPECT_EQ(colonna(schermo, 1), (QStringList{QStringLiteral("20/11/2026"), QStringLiteral("21/11/2026"),
                                              QStringLiteral(" "), QStringLiteral("TOTALE")}));
}

TEST_F(ArchivioVenduto, GliOrariNonEntranoNellaRicerca) {
  enter(bottega, {{.date = oggi()}});
  const GuidedScreen schermo(bottega, kSchermo);
  scegli(schermo, QStringLiteral("CmbOra"), QStringLiteral("23"));
  scegli(schermo, QStringLiteral("CmbMinFine"), QStringLiteral("59"));
  schermo.click(kCerca);
  expectBoxes(bottega, {kSenzaSconto});
  EXPECT_EQ(griglia(schermo).Rows(), 4);
}

TEST_F(ArchivioVenduto, UnInizioDopoLaFineDaUnElencoVuoto) {
  enter(bottega, {{.date = QStringLiteral("20261120")}});
  const GuidedScreen schermo(bottega, kSchermo);
  scegliData(schermo, {}, QStringLiteral("20261130"));
  scegliData(schermo, QStringLiteral("Fine"), QStringLiteral("20261101"));
  schermo.click(kCerca);
  EXPECT_TRUE(bottega.user.takeBoxes().empty());
  EXPECT_EQ(griglia(schermo).Rows(), 2);
  EXPECT_EQ(riga(schermo, 1).join(QString()), QString());
  EXPECT_FALSE(griglia(schermo).CellBackColor(1, 1).isValid());
}

TEST_F(ArchivioVenduto, UnElencoPiuLungoDopoUnoCortoNonTieneITotaliDiPrima) {
  enter(bottega, {{.ean = QStringLiteral("A")}, {.ean = QStringLiteral("B")}, {.ean = QStringLiteral("C")}});
  const GuidedScreen schermo(bottega, kSchermo);
  periodoLargo(schermo);
  scrivi(schermo, kCodEan, QStringLiteral("A"));
  schermo.click(kCerca);
  schermo.click(kReset);
  schermo.click(kCerca);
  EXPECT_EQ(bottega.user.takeBoxes().size(), 4U);
  EXPECT_EQ(griglia(schermo).Rows(), 6);
  EXPECT_FALSE(griglia(schermo).CellBackColor(3, 7).isValid());
  EXPECT_EQ(riga(schermo, 4).join(u'|'), QStringLiteral("| |||||||"));
  EXPECT_EQ(colonna(schermo, 8).last(), QStringLiteral("0.000"));
}

TEST_F(ArchivioVenduto, UnElencoPiuCortoNonTieneNellaRigaBiancaCioCheCEra) {
  enter(bottega, {{.ean = QStringLiteral("A")},
                  {.ean = QStringLiteral("B")},
                  {.ean = QStringLiteral("C")},
                  {.ean = QStringLiteral("D")}});
  const GuidedScreen schermo(bottega, kSchermo);
  periodoLargo(schermo);
  scrivi(schermo, kCodEan, QStringLiteral("D"));
  schermo.click(kCerca);
  expectBoxes(bottega, {kSenzaSconto});
  EXPECT_EQ(riga(schermo, 2).join(u'|'), QStringLiteral("| |||||||"));
  EXPECT_EQ(riga(schermo, 3).join(u'|'), QStringLiteral("|TOTALE||||1.250|2.000|2.500|0.000"));
}

TEST_F(ArchivioVenduto, EanEDescrizioneFiltranoInsieme) {
  enter(bottega, {{.ean = QStringLiteral("A1"), .description = QStringLiteral("PANE")},
                  {.ean = QStringLiteral("A2"), .description = QStringLiteral("LATTE")},
                  {.ean = QStringLiteral("B1"), .description = QStringLiteral("PANE")}});
  const GuidedScreen schermo(bottega, kSchermo);
  periodoLargo(schermo);
  scrivi(schermo, kCodEan, QStringLiteral("a"));
  scrivi(schermo, kDescrizione, QStringLiteral("pan"));
  schermo.click(kCerca);
  expectBoxes(bottega, {kSenzaSconto});
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 2), QStringLiteral("A1"));
}

TEST_F(ArchivioVenduto, UnApostrofoNelFiltroSiDiceELElencoResta) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  scrivi(schermo, kDescrizione, QStringLiteral("L'ORO"));
  schermo.click(kCerca);
  expectBoxes(bottega, {box(QStringLiteral("3075 - *"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 4);
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 1), QStringLiteral("TOTALE"));
}

TEST_F(ArchivioVenduto, UnArchivioBloccatoInCercaSiDiceSenzaNomeDiProceduraELElencoResta) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  periodoLargo(schermo);
  {
    const OtherProgram altro(varGlobal().NomeDB_Articoli, {QStringLiteral("BEGIN EXCLUSIVE")});
    schermo.click(kCerca);
  }
  expectBoxes(bottega, {box(QStringLiteral("3260 - *"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 4);
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 1), QStringLiteral("TOTALE"));
}

TEST_F(ArchivioVenduto, CercaMostra000PerUnImportoNullo) {
  enter(bottega, {{.amount = {}}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 7), QStringLiteral("0.000"));
  periodoLargo(schermo);
  schermo.click(kCerca);
  expectBoxes(bottega, {kSenzaSconto});
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 7), QStringLiteral("000"));
}

TEST_F(ArchivioVenduto, IPezziNulliSonoZeroELaMediaEVuotaSenzaMessaggi) {
  enter(bottega, {{.pieces = {}}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(riga(schermo, 1).join(u'|'), QStringLiteral("1|20/11/2026|A1|8001120000016|PANE||0|2.500|0.000"));
  periodoLargo(schermo);
  schermo.click(kCerca);
  expectBoxes(bottega, {kSenzaSconto});
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 6), QStringLiteral("0"));
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 6), QStringLiteral("0.000"));
}

TEST_F(ArchivioVenduto, InCercaUnaDivisionePerZeroSiDiceESiVaAvanti) {
  enter(bottega, {{.ean = QStringLiteral("A"), .amount = 300, .pieces = 0}, {.ean = QStringLiteral("B")}});
  const GuidedScreen schermo(bottega, kSchermo);
  bottega.user.takeBoxes();
  periodoLargo(schermo);
  schermo.click(kCerca);
  expectBoxes(bottega,
              {box(QStringLiteral("11 - Divisione per zero"), Icon::Critical), kSenzaSconto, kSenzaSconto});
  EXPECT_EQ(riga(schermo, 1).join(u'|'), QStringLiteral("1|20/11/2026|A|8001120000016|PANE||0|3.000|"));
  EXPECT_EQ(riga(schermo, 4).join(u'|'), QStringLiteral("|TOTALE||||1.250|2.000|5.500|0.000"));
}

TEST_F(ArchivioVenduto, SenzaTabellaCercaFinisceIlProgramma) {
  const GuidedScreen schermo(bottega, kSchermo);
  bottega.execute(QStringLiteral("DROP TABLE TAB_VENDUTO"));
  schermo.click(kCerca);
  expectBoxes(bottega, {kGrave});
  EXPECT_TRUE(bottega.user.terminated());
}

TEST_F(ArchivioVenduto, SottoIMessaggiDiCercaLoSchermoSiDipingeELaListaArrivaIntera) {
  enter(bottega, testLedger(50));
  enter(bottega, {{.ean = QStringLiteral("Z1")}, {.ean = QStringLiteral("Z2")}});
  const GuidedScreen schermo(bottega, kSchermo);
  griglia(schermo).scrollToBottom();
  periodoLargo(schermo);
  scrivi(schermo, kCodEan, QStringLiteral("Z"));
  bottega.user.onBox = [&](const Box&) {
    griglia(schermo).viewport()->repaint();
    schermo.window().resize(schermo.window().size() + QSize(1, 1));
    QCoreApplication::processEvents();
  };
  schermo.click(kCerca);
  bottega.user.onBox = nullptr;
  expectBoxes(bottega, {kSenzaSconto, kSenzaSconto});
  EXPECT_EQ(griglia(schermo).Rows(), 5);
  EXPECT_EQ(griglia(schermo).model()->rowCount(), 4);
  EXPECT_EQ(griglia(schermo).TextMatrix(2, 2), QStringLiteral("Z2"));
}

TEST_F(ArchivioVenduto, PulisciSvuotaIFiltriELElencoResta) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  scrivi(schermo, kCodEan, QStringLiteral("A"));
  scrivi(schermo, kDescrizione, QStringLiteral("B"));
  schermo.click(kReset);
  EXPECT_EQ(schermo.text(kCodEan), QString());
  EXPECT_EQ(schermo.text(kDescrizione), QString());
  EXPECT_EQ(griglia(schermo).Rows(), 4);
}

TEST_F(ArchivioVenduto, DiceQualeArchivioEAperto) {
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.text(QStringLiteral("LabelArchivio")), QStringLiteral("Archivio: archivio.mdb"));
  EXPECT_TRUE(schermo.control(QStringLiteral("LabelArchivio")).isVisible());
}

// The foot.

TEST_F(ArchivioVenduto, IlPiedeDiceRighePezziIncassoESconti) {
  enter(bottega, {{.ean = QStringLiteral("A"), .amount = 123450, .pieces = 1200, .discount = 1200},
                  {.ean = QStringLiteral("B"), .amount = 50, .pieces = 3, .discount = 5}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(detto(schermo),
            QStringLiteral("2 righe di venduto, 1.203 pezzi, incasso €\u00A01.235,00, sconti €\u00A012,05"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Plain);
}

TEST_F(ArchivioVenduto, UnaRigaEUnPezzoSonoAlSingolare) {
  enter(bottega, {{.amount = 100, .pieces = 1, .discount = 0}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(detto(schermo),
            QStringLiteral("1 riga di venduto, 1 pezzo, incasso €\u00A01,00, sconti €\u00A00,00"));
}

TEST_F(ArchivioVenduto, DopoCercaIlPiedeAvverteCheGliScontiNonSonoLetti) {
  enter(bottega, {{.amount = 250, .pieces = 2, .discount = 10}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.text(QStringLiteral("NotaSconti")),
            QStringLiteral("«Cerca» non legge gli sconti e lo dice a ogni riga trovata: per vederli, "
                           "«Visualizza Tutti»."));
  EXPECT_TRUE(schermo.control(QStringLiteral("NotaSconti")).isVisible());
  periodoLargo(schermo);
  schermo.click(kCerca);
  expectBoxes(bottega, {kSenzaSconto});
  EXPECT_EQ(detto(schermo),
            QStringLiteral("1 riga di venduto, 2 pezzi, incasso €\u00A02,50, sconti non letti: li "
                           "mostra «Visualizza Tutti»"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Warning);
  schermo.click(kTutti);
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Plain);
}

TEST_F(ArchivioVenduto, UnElencoVuotoLoDiceInMezzoEAlPiede) {
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).Notice(), QStringLiteral("Nessuna vendita in archivio"));
  EXPECT_EQ(detto(schermo), QStringLiteral("Nessuna vendita in archivio"));
  schermo.click(kCerca);
  EXPECT_EQ(griglia(schermo).Notice(), QStringLiteral("Nessuna vendita trovata"));
  EXPECT_EQ(detto(schermo), QStringLiteral("Nessuna vendita trovata"));
  enter(bottega, {{}});
  schermo.click(kTutti);
  EXPECT_EQ(griglia(schermo).Notice(), QString());
}

TEST_F(ArchivioVenduto, UnElencoFermatoSiLeggeAlPiedeAncheAllApertura) {
  enter(bottega, {{.pieces = 0}});
  const GuidedScreen schermo(bottega, kSchermo);
  expectBoxes(bottega, {box(QStringLiteral("RiempiGridCentral 11 - Divisione per zero"), Icon::Critical)});
  EXPECT_EQ(detto(schermo), QStringLiteral("RiempiGridCentral 11 - Divisione per zero"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Failed);
}

TEST_F(ArchivioVenduto, LExportDiceLeRigheEIlFileSiApreDaLi) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  esportato(schermo);
  EXPECT_EQ(detto(schermo), QStringLiteral("Esportate 3 righe in venduto.csv"));
  schermo.click(QStringLiteral("AzioneEsito"));
  EXPECT_EQ(bottega.user.programs(), QStringList{bottega.folder.file(QStringLiteral("venduto.csv"))});
}

TEST_F(ArchivioVenduto, UnExportFallitoSiLeggeAlPiede) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  bottega.user.chooses(bottega.folder.file(QStringLiteral("assente/v.csv")));
  schermo.click(kExport);
  EXPECT_EQ(bottega.user.takeBoxes().size(), 1U);
  EXPECT_TRUE(detto(schermo).startsWith(QStringLiteral("Error 76 (Percorso non trovato"))) << "of its box";
}

TEST_F(ArchivioVenduto, PulisciLoDiceESenzaToccareLElenco) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.click(kReset);
  EXPECT_EQ(detto(schermo), QStringLiteral("Filtri vuoti; l'elenco è quello di prima"));
}

// Grid, keys.

TEST_F(ArchivioVenduto, CtrlFVaAlFiltroF5RileggeECtrlEEsporta) {
  enter(bottega, {{.date = QStringLiteral("20200101")}});
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.click(kCerca);
  EXPECT_EQ(griglia(schermo).Rows(), 2);
  schermo.key(Qt::Key_F5);
  EXPECT_EQ(griglia(schermo).Rows(), 4);
  premi(schermo, Qt::Key_F);
  EXPECT_EQ(schermo.focus(), kCodEan);
  bottega.user.chooses(std::nullopt);
  premi(schermo, Qt::Key_E);
  EXPECT_EQ(bottega.user.requests().size(), 1U);
  EXPECT_TRUE(schermo.control(kTutti).toolTip().endsWith(QStringLiteral("(F5)")));
  EXPECT_TRUE(schermo.control(kExport).toolTip().endsWith(QStringLiteral("(Ctrl+E)")));
  EXPECT_TRUE(schermo.control(kCodEan).toolTip().endsWith(QStringLiteral("(Ctrl+F)")));
}

TEST_F(ArchivioVenduto, InvioSuEsciNonEsceENonCerca) {
  enter(bottega, {{.date = QStringLiteral("20200101")}});
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.control(kEsci).setFocus();
  schermo.key(Qt::Key_Return);
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(griglia(schermo).Rows(), 4);
}

TEST_F(ArchivioVenduto, LaRotellaSulleDateSenzaFuocoNonLeCambia) {
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.control(kCodEan).setFocus();
  for (const char* nome : {"CmbGiorno", "CmbAnnoFine", "CmbOra"}) {
    auto& lista = schermo.control<QComboBox>(nome);
    const QString prima = lista.currentText();
    QWheelEvent rotella(QPointF(5, 5), lista.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                        Qt::NoScrollPhase, false);
    QApplication::sendEvent(&lista, &rotella);
    EXPECT_EQ(lista.currentText(), prima) << nome;
  }
  EXPECT_EQ(schermo.focus(), kCodEan);
}

TEST_F(ArchivioVenduto, LeTestateIncrociateSiSpieganoEIlTastoDestroCopiaLEanVero) {
  enter(bottega, {{.ean = QStringLiteral("ART7"), .article = QStringLiteral("8001120000016")}});
  const GuidedScreen schermo(bottega, kSchermo);
  const FlexGrid& lista = griglia(schermo);
  const auto spiega = [&](int colonna) {
    return lista.model()->headerData(colonna, Qt::Horizontal, Qt::ToolTipRole).toString();
  };
  EXPECT_EQ(spiega(2), QStringLiteral("In questa colonna la ricezione registra il codice articolo"));
  EXPECT_EQ(spiega(3), QStringLiteral("In questa colonna la ricezione registra il codice EAN"));
  const QPoint dove = lista.visualRect(lista.model()->index(0, 1)).center();
  QContextMenuEvent chiede(QContextMenuEvent::Mouse, dove, lista.viewport()->mapToGlobal(dove));
  QApplication::sendEvent(lista.viewport(), &chiede);
  auto* menu = lista.findChild<QMenu*>(QStringLiteral("MenuElenco"));
  ASSERT_NE(menu, nullptr);
  menu->findChild<QAction*>(QStringLiteral("Copia EAN"))->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("8001120000016"));
  menu->close();
}

TEST_F(ArchivioVenduto, UnClicSceglieLaRigaIntera) {
  enter(bottega, {{.ean = QStringLiteral("A")}, {.ean = QStringLiteral("B")}});
  const GuidedScreen schermo(bottega, kSchermo);
  clicCella(schermo, 2, 3);
  EXPECT_EQ(griglia(schermo).selectionModel()->selectedRows().size(), 1);
  EXPECT_EQ(griglia(schermo).selectionModel()->selectedIndexes().size(), 9);
}

TEST_F(ArchivioVenduto, UnaLarghezzaDataAManoRestaFinCheLoSchermoVive) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  griglia(schermo).horizontalHeader()->resizeSection(2, 199);
  schermo.click(kTutti);
  schermo.click(kCerca);
  EXPECT_EQ(griglia(schermo).columnWidth(2), 199);
}

TEST_F(ArchivioVenduto, UnClicPortaLaSelezioneAllaColonna6DellaSuaRiga) {
  enter(bottega, {{.ean = QStringLiteral("A")}, {.ean = QStringLiteral("B")}});
  const GuidedScreen schermo(bottega, kSchermo);
  clicCella(schermo, 2, 3);
  EXPECT_EQ(griglia(schermo).Row(), 2);
  EXPECT_EQ(griglia(schermo).Col(), 6);
}

TEST_F(ArchivioVenduto, InvioNellaGrigliaSceglieComeIlClic) {
  enter(bottega, {{.ean = QStringLiteral("A")}, {.ean = QStringLiteral("B")}});
  const GuidedScreen schermo(bottega, kSchermo);
  griglia(schermo).setFocus();
  schermo.key(Qt::Key_Down);
  schermo.key(Qt::Key_Return);
  EXPECT_EQ(griglia(schermo).Row(), 2);
  EXPECT_EQ(griglia(schermo).Col(), 6);
  EXPECT_TRUE(bottega.user.takeBoxes().empty()) << "no search";
}

TEST_F(ArchivioVenduto, InvioNeiCampiCerca) {
  enter(bottega, {{.date = QStringLiteral("20200101")}});
  const GuidedScreen schermo(bottega, kSchermo);
  for (const QString& campo :
       {QStringLiteral("CmbGiorno"), QStringLiteral("CmbSecFine"), kCodEan, kDescrizione}) {
    schermo.click(kTutti);
    ASSERT_EQ(griglia(schermo).Rows(), 4);
    schermo.control(campo).setFocus();
    schermo.key(Qt::Key_Return);
    EXPECT_EQ(griglia(schermo).Rows(), 2) << campo.toStdString();
  }
}

TEST_F(ArchivioVenduto, EscChiudeLoSchermo) {
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.key(Qt::Key_Escape);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(ArchivioVenduto, EsciChiudeLoSchermoEAllaRiaperturaETuttoNuovo) {
  {
    const GuidedScreen schermo(bottega, kSchermo);
    scrivi(schermo, kCodEan, QStringLiteral("A"));
    schermo.click(kEsci);
    EXPECT_FALSE(schermo.alive());
  }
  const GuidedScreen ancora(bottega, kSchermo);
  EXPECT_EQ(ancora.text(kCodEan), QString());
}

TEST_F(ArchivioVenduto, EsciRiportaAllaGestioneConLArchivioAperto) {
  bottega.screens.registra(QStringLiteral("Form_GestioneMMC"), [](Contesto&) { return new QWidget; });
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  ASSERT_NE(bottega.screens.trova(QStringLiteral("Form_GestioneMMC")), nullptr);
  EXPECT_TRUE(bottega.screens.trova(QStringLiteral("Form_GestioneMMC"))->isVisible());
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
}

TEST_F(ArchivioVenduto, IlTabulatoreSegueLOrdineDelLavoro) {
  const GuidedScreen schermo(bottega, kSchermo);
  QStringList giro;
  for (int i = 0; i < 20; ++i) {
    giro.append(schermo.window().focusWidget()->objectName());
    schermo.key(Qt::Key_Tab);
  }
  EXPECT_EQ(giro, QStringLiteral("CmbGiorno CmbMese CmbAnno CmbOra CmbMin CmbSec CmbGiornoFine CmbMeseFine "
                                 "CmbAnnoFine CmbOraFine CmbMinFine CmbSecFine vkTextBoxCodEan "
                                 "vkTextBoxDescrizione Cmd_Cerca Cmd_Reset MSFlexGridVenduto Cmd_Refresh "
                                 "Cmd_Export Cmd_Esci")
                      .split(u' '));
}

/// The screen in a font of the parameter's size, in the program's look.
class ArchivioVendutoNelCarattere : public ArchivioVenduto, public testing::WithParamInterface<int> {
 private:
  const InFont carattere_{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Punti, ArchivioVendutoNelCarattere, testing::Values(9, 11, 12));

TEST_P(ArchivioVendutoNelCarattere, NonPassaMilleventiquattroENonTagliaDateNeImporti) {
  enter(bottega, {{.ean = QStringLiteral("0123456789012"),
                   .article = QStringLiteral("8001120000016"),
                   .amount = 9999999,
                   .pieces = 1,
                   .discount = 999999}});
  const GuidedScreen schermo(bottega, kSchermo);
  schermo.window().resize(1024, 732);
  for (int giro = 0; giro < 3; ++giro) QCoreApplication::processEvents();
  EXPECT_LE(schermo.window().minimumSizeHint().width(), 1024);
  EXPECT_EQ(schermo.window().size(), QSize(1024, 732));
  for (const QPushButton* tasto : schermo.window().findChildren<QPushButton*>())
    EXPECT_GE(tasto->width(), tasto->sizeHint().width()) << tasto->objectName().toStdString();
  for (const QComboBox* combo : schermo.window().findChildren<QComboBox*>())
    EXPECT_GE(combo->width(), combo->sizeHint().width()) << combo->objectName().toStdString();
  for (const QLabel* scritta : schermo.window().findChildren<QLabel*>())
    if (scritta->objectName().startsWith(QStringLiteral("Label"))) {
      EXPECT_GE(scritta->width(), scritta->sizeHint().width()) << scritta->objectName().toStdString();
    }
  const FlexGrid& lista = griglia(schermo);
  for (const int colonna : {0, 1, 2, 3, 5, 6, 7, 8})
    for (const int riga : {0, 2})
      EXPECT_GE(lista.columnWidth(colonna),
                lista.sizeHintForIndex(lista.model()->index(riga, colonna)).width())
          << riga << ' ' << colonna;
  EXPECT_EQ(lista.horizontalScrollBar()->maximum(), 0);
}

TEST_P(ArchivioVendutoNelCarattere, TotaliEnormiSiVedonoInteri) {
  enter(bottega, {{.amount = 2147483647, .pieces = 2147483647, .discount = 2147483647},
                  {.amount = 2147483647, .pieces = 2147483647, .discount = 2147483647}});
  const GuidedScreen schermo(bottega, kSchermo);
  const FlexGrid& lista = griglia(schermo);
  for (const int colonna : {5, 6, 7, 8})
    EXPECT_GE(lista.columnWidth(colonna), lista.sizeHintForIndex(lista.model()->index(3, colonna)).width())
        << colonna;
}

// Export.

TEST_F(ArchivioVenduto, LExportHaTutteLeRigheTotaliCompresiSenzaTestataNeNumero) {
  enter(bottega, {{.description = QStringLiteral("CAFFÈ €"), .amount = 1250, .pieces = 3, .discount = 50}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(esportato(schermo),
            QByteArray("20/11/2026;A1;8001120000016;CAFF\xC8 \x80;4.167;3;12.500;0.500\r\n"
                       " ;;;;;;;\r\n"
                       "TOTALE;;;;4.167;3.000;12.500;0.500\r\n"));
  ASSERT_EQ(bottega.user.requests().size(), 1U);
  EXPECT_EQ(bottega.user.requests()[0].filter, QStringLiteral("csv (*.csv)|*.csv"));
}

TEST_F(ArchivioVenduto, LExportScriveITestiComeSonoAncheConSeparatoriEACapo) {
  enter(bottega, {{.description = QStringLiteral("A;\"B\"\r\nC")}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_TRUE(
      esportato(schermo).startsWith("20/11/2026;A1;8001120000016;A;\"B\"\r\nC;1.250;2;2.500;0.000\r\n"));
}

TEST_F(ArchivioVenduto, SuUnPCItalianoElencoEdExportHannoLaVirgola) {
  const WithLocale italiano("it_IT");
  enter(bottega, {{.amount = 1250, .pieces = 3, .discount = 50}});
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(riga(schermo, 1).mid(5).join(u'|'), QStringLiteral("4,167|3|12,500|0,500"));
  EXPECT_EQ(esportato(schermo), QByteArray("20/11/2026;A1;8001120000016;PANE;4,167;3;12,500;0,500\r\n"
                                           " ;;;;;;;\r\n"
                                           "TOTALE;;;;4,167;3,000;12,500;0,500\r\n"));
}

TEST_F(ArchivioVenduto, LExportDiUnElencoVuotoScriveUnaRigaDiColonneVuote) {
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(esportato(schermo), QByteArray(";;;;;;;\r\n"));
}

TEST_F(ArchivioVenduto, UnExportAnnullatoOSenzaNomeNonScriveNulla) {
  const GuidedScreen schermo(bottega, kSchermo);
  const QStringList prima = QDir(bottega.folder.path()).entryList();
  bottega.user.chooses(std::nullopt).chooses(QString());
  schermo.click(kExport);
  schermo.click(kExport);
  EXPECT_EQ(bottega.user.requests().size(), 2U);
  EXPECT_TRUE(bottega.user.takeBoxes().empty());
  EXPECT_EQ(QDir(bottega.folder.path()).entryList(), prima);
}

TEST_F(ArchivioVenduto, UnFileCheNonSiPuoScrivereSiDiceENonLasciaUnMozzicone) {
  enter(bottega, {{}});
  const GuidedScreen schermo(bottega, kSchermo);
  bottega.user.chooses(bottega.folder.file(QStringLiteral("assente/v.csv")));
  schermo.click(kExport);
  expectBoxes(bottega, {plainBox(QStringLiteral("Error 76 (Percorso non trovato: %1) in procedure "
                                                "Cmd_Export_Click of Modulo Form_ArchivioVenduto")
                                     .arg(bottega.folder.file(QStringLiteral("assente/v.csv"))))});
  EXPECT_FALSE(QFile::exists(bottega.folder.file(QStringLiteral("assente"))));
}

// Many rows, impatience.

TEST_F(ArchivioVenduto, UnPassaggioPerRecordELoSchermoNonSiDipinge) {
  enter(bottega, testLedger(50));
  const GuidedScreen schermo(bottega, kSchermo);
  const int prima = bottega.user.passes();
  bool ferma = true;
  bottega.user.onPass = [&] { ferma = ferma && !griglia(schermo).Redraw(); };
  schermo.click(kTutti);
  bottega.user.onPass = nullptr;
  EXPECT_EQ(bottega.user.passes() - prima, 50);
  EXPECT_TRUE(ferma);
  EXPECT_TRUE(griglia(schermo).Redraw());
}

TEST_F(ArchivioVenduto, ClicEscEChiusuraImbucatiAOgniPassaggioNonFannoNulla) {
  enter(bottega, testLedger(50));
  const GuidedScreen schermo(bottega, kSchermo);
  const int prima = bottega.user.passes();
  bottega.user.onPass = [&] { schermo.impatience(kTutti); };
  schermo.click(kTutti);
  bottega.user.onPass = nullptr;
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(bottega.user.passes() - prima, 50);
  EXPECT_EQ(griglia(schermo).Rows(), 53);
}

TEST_F(ArchivioVenduto, CentomilaRigheSiMostranoTutteConITotali) {
  const std::vector<LedgerRow> righe = testLedger(100000);
  enter(bottega, righe);
  std::int64_t pezzi = 0;
  std::int64_t importi = 0;
  for (const LedgerRow& riga : righe) {
    pezzi += *riga.pieces;
    importi += *riga.amount;
  }
  const GuidedScreen schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).Rows(), 100003);
  EXPECT_EQ(griglia(schermo).TextMatrix(100000, 0), QStringLiteral("100000"));
  EXPECT_EQ(griglia(schermo).TextMatrix(100002, 6), QStringLiteral("%1.000").arg(pezzi));
  EXPECT_EQ(griglia(schermo).TextMatrix(100002, 7),
            QStringLiteral("%1.%2").arg(importi / 100).arg(importi % 100 * 10, 3, 10, QLatin1Char('0')));
}

}  // namespace
