#include "sales/Form_ArchivioVenduto.h"

#include <QComboBox>
#include <QDate>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "articles/article_database.h"
#include "articles/guided_screen.h"
#include "articles/others.h"
#include "controls/FlexGrid.h"
#include "sales/sales_ledger.h"
#include "sales/with_locale.h"

namespace {

const QString kSchermo = QStringLiteral("Form_ArchivioVenduto");
const QString kCerca = QStringLiteral("Cmd_Cerca");
const QString kReset = QStringLiteral("Cmd_Reset");
const QString kTutti = QStringLiteral("Cmd_Refresh");
const QString kExport = QStringLiteral("Cmd_Export");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kCodEan = QStringLiteral("vkTextBoxCodEan");
const QString kDescrizione = QStringLiteral("vkTextBoxDescrizione");

const Box kGrave = riquadro(QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. "
                                           "PROCEDURA ABORTITA !!!"),
                            Icon::Critical);
const Box kSenzaSconto = riquadro(
    QStringLiteral("3265 - Elemento 'Sconto_giornaliero' non trovato in questo insieme."), Icon::Critical);

class ArchivioVenduto : public testing::Test {
 protected:
  ArchivioVenduto() {
    registraArchivioVenduto(bottega.schermate);
    bottega.apriArchivio();
  }

  static FlexGrid& griglia(const SchermoGuidato& schermo) {
    return schermo.controllo<FlexGrid>(QStringLiteral("MSFlexGridVenduto"));
  }
  static QStringList riga(const SchermoGuidato& schermo, int numero) {
    QStringList testi;
    for (int c = 0; c < 9; ++c) testi.append(griglia(schermo).TextMatrix(numero, c));
    return testi;
  }
  static QStringList colonna(const SchermoGuidato& schermo, int numero) {
    QStringList testi;
    for (int r = 1; r < griglia(schermo).Rows(); ++r) testi.append(griglia(schermo).TextMatrix(r, numero));
    return testi;
  }
  static void scegli(const SchermoGuidato& schermo, const QString& lista, const QString& voce) {
    auto& combo = schermo.controllo<QComboBox>(lista);
    combo.setFocus();
    QTest::keyClicks(&combo, voce);
    ASSERT_EQ(combo.currentText(), voce);
  }
  static void scegliData(const SchermoGuidato& schermo, const QString& finale, const QString& yyyymmdd) {
    scegli(schermo, QStringLiteral("CmbAnno") + finale, yyyymmdd.left(4));
    scegli(schermo, QStringLiteral("CmbMese") + finale, yyyymmdd.mid(4, 2));
    scegli(schermo, QStringLiteral("CmbGiorno") + finale, yyyymmdd.mid(6, 2));
  }
  /// A period around every row.
  static void periodoLargo(const SchermoGuidato& schermo) {
    scegliData(schermo, {}, QStringLiteral("20000101"));
    scegliData(schermo, QStringLiteral("Fine"), QStringLiteral("21001231"));
  }
  static void scrivi(const SchermoGuidato& schermo, const QString& casella, const QString& testo) {
    auto& campo = schermo.controllo<QLineEdit>(casella);
    campo.setFocus();
    campo.selectAll();
    QTest::keyClicks(&campo, testo);
  }
  static void clicCella(const SchermoGuidato& schermo, int riga, int colonna) {
    const FlexGrid& lista = griglia(schermo);
    const QRect cella = lista.visualRect(lista.model()->index(riga - 1, colonna));
    QTest::mouseClick(lista.viewport(), Qt::LeftButton, {}, cella.center());
  }
  static QString oggi() { return QDate::currentDate().toString(QStringLiteral("yyyyMMdd")); }
  QByteArray esportato(const SchermoGuidato& schermo) {
    const QString file = bottega.cartella.file(QStringLiteral("venduto.csv"));
    bottega.utente.chooses(file);
    schermo.clic(kExport);
    attendi(bottega, {riquadro(QStringLiteral("Creazione del file ") + file + QStringLiteral(" terminata."),
                               Icon::Information)});
    return bottega.cartella.read(QStringLiteral("venduto.csv"));
  }

  ConLocale locale{"C"};
  Bottega bottega;
};

// Opening.

TEST_F(ArchivioVenduto, AllAperturaSonoScrittiTitoloCaptionETestate) {
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(schermo.finestra().windowTitle(), QStringLiteral("Archivio Venduto"));
  EXPECT_EQ(schermo.testo(QStringLiteral("LabelDataInizio")), QStringLiteral("Data Inizio"));
  EXPECT_EQ(schermo.testo(QStringLiteral("LabelDataFine")), QStringLiteral("Data Fine"));
  EXPECT_EQ(schermo.testo(QStringLiteral("LabelCodEan")), QStringLiteral("Codice EAN"));
  EXPECT_EQ(schermo.testo(QStringLiteral("LabelDescrizione")), QStringLiteral("Descrizione"));
  EXPECT_EQ(schermo.testo(kCerca), QStringLiteral("Cerca"));
  EXPECT_EQ(schermo.testo(kReset), QStringLiteral("Pulisci"));
  EXPECT_EQ(schermo.testo(kTutti), QStringLiteral("Visualizza Tutti"));
  EXPECT_EQ(schermo.testo(kExport), QStringLiteral("Export Venduto"));
  EXPECT_EQ(schermo.testo(kEsci), QStringLiteral("Esci"));
  EXPECT_EQ(
      riga(schermo, 0),
      (QStringList{QStringLiteral("Nr."), QStringLiteral("DATA"), QStringLiteral("COD. EAN"),
                   QStringLiteral("COD. ART."), QStringLiteral("DESCRIZIONE "), QStringLiteral("PR. MEDIO"),
                   QStringLiteral("N. PEZZI"), QStringLiteral("IMP. GIORN."), QStringLiteral("SC. GIORN.")}));
  EXPECT_EQ(griglia(schermo).horizontalHeader()->height(), 40);
  EXPECT_EQ(schermo.finestra().focusWidget()->objectName(), QStringLiteral("CmbGiorno"));
}

TEST_F(ArchivioVenduto, ISelettoriMostranoOggiEGliOrariLaPrimaVoce) {
  const SchermoGuidato schermo(bottega, kSchermo);
  for (const QString& finale : {QString(), QStringLiteral("Fine")}) {
    EXPECT_EQ(schermo.controllo<QComboBox>(QStringLiteral("CmbAnno") + finale).currentText() +
                  schermo.controllo<QComboBox>(QStringLiteral("CmbMese") + finale).currentText() +
                  schermo.controllo<QComboBox>(QStringLiteral("CmbGiorno") + finale).currentText(),
              oggi());
    const auto& anni = schermo.controllo<QComboBox>(QStringLiteral("CmbAnno") + finale);
    EXPECT_EQ(anni.itemText(0), QStringLiteral("2000"));
    EXPECT_EQ(anni.itemText(anni.count() - 1), QStringLiteral("2100"));
    for (const char* nome : {"CmbOra", "CmbMin", "CmbSec"})
      EXPECT_EQ(schermo.controllo<QComboBox>(QLatin1String(nome) + finale).currentText(),
                QStringLiteral("00"));
  }
}

TEST_F(ArchivioVenduto, SenzaVenditeRestaUnaRigaVuota) {
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).Rows(), 2);
  EXPECT_EQ(riga(schermo, 1).join(QString()), QString());
}

TEST_F(ArchivioVenduto, LeRigheSonoPerGiornoECodiceConTreRigheInPiu) {
  registra(bottega, {{.data = QStringLiteral("20261121"), .ean = QStringLiteral("A")},
                     {.data = QStringLiteral("20261120"), .ean = QStringLiteral("B")},
                     {.data = QStringLiteral("20261120"),
                      .ean = QStringLiteral("A"),
                      .importo = 100,
                      .pezzi = 3,
                      .sconto = 10}});
  const SchermoGuidato schermo(bottega, kSchermo);
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
  registra(bottega, {{}});
  const SchermoGuidato schermo(bottega, kSchermo);
  schermo.finestra().resize(792, 600);
  QCoreApplication::processEvents();
  ASSERT_GT(griglia(schermo).horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(griglia(schermo).horizontalScrollBar()->value(), 0);
}

TEST_F(ArchivioVenduto, ISoliTotaliSonoGialliConTestoRosso) {
  registra(bottega, {{}, {}});
  const SchermoGuidato schermo(bottega, kSchermo);
  for (int r = 1; r < griglia(schermo).Rows(); ++r)
    for (int c = 0; c < 9; ++c) {
      const bool totale = r == 4 && (c == 1 || c >= 5);
      EXPECT_EQ(griglia(schermo).CellBackColor(r, c), totale ? QColor(Qt::yellow) : QColor()) << r << c;
      EXPECT_EQ(griglia(schermo).CellForeColor(r, c), totale ? QColor(Qt::red) : QColor()) << r << c;
    }
}

TEST_F(ArchivioVenduto, INumeriSonoADestra) {
  registra(bottega, {{}});
  const SchermoGuidato schermo(bottega, kSchermo);
  for (int c = 0; c < 9; ++c)
    EXPECT_EQ(griglia(schermo).CellAlignment(1, c).testFlag(Qt::AlignRight), c == 0 || c >= 5) << c;
}

TEST_F(ArchivioVenduto, CodiceEdEanRestanoIncrociatiComeLaRicezioneLiRegistra) {
  registra(bottega, {{.ean = QStringLiteral("ART7"), .articolo = QStringLiteral("8001120000016")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 2), QStringLiteral("ART7"));
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 3), QStringLiteral("8001120000016"));
}

TEST_F(ArchivioVenduto, DueRicezioniInUnGiornoSonoDueRigheConDataECodiceUguali) {
  registra(bottega, {{.importo = 100}, {.importo = 200}});
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).Rows(), 5);
  EXPECT_EQ(riga(schermo, 1).mid(1, 3), riga(schermo, 2).mid(1, 3));
  EXPECT_EQ(griglia(schermo).TextMatrix(4, 7), QStringLiteral("3.000"));
}

TEST_F(ArchivioVenduto, INulliDiOgniColonnaNonFermanoLElenco) {
  registra(bottega,
           {{.data = {}, .ean = {}, .articolo = {}, .descrizione = {}, .importo = {}, .sconto = {}}, {}});
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(riga(schermo, 1).join(u'|'), QStringLiteral("1|||||0.000|2|0.000|0.000"));
  EXPECT_EQ(griglia(schermo).TextMatrix(4, 1), QStringLiteral("TOTALE"));
}

// Failures of the whole list.

TEST_F(ArchivioVenduto, UnaRigaConZeroPezziFermaLElencoDoveEArrivato) {
  registra(
      bottega,
      {{.ean = QStringLiteral("A")}, {.ean = QStringLiteral("B"), .pezzi = 0}, {.ean = QStringLiteral("C")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  attendi(bottega, {riquadro(QStringLiteral("RiempiGridCentral 11 - Divisione per zero"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 6);
  EXPECT_EQ(riga(schermo, 1).at(7), QStringLiteral("2.500"));
  EXPECT_EQ(riga(schermo, 2).join(u'|'), QStringLiteral("2|20/11/2026|B|8001120000016|PANE||||"));
  EXPECT_EQ(riga(schermo, 3).join(QString()), QString());
  EXPECT_EQ(riga(schermo, 5).join(QString()), QString());
  EXPECT_TRUE(griglia(schermo).Redraw());
}

TEST_F(ArchivioVenduto, SenzaLaTabellaDelVendutoIlProgrammaFinisceConIlMessaggioGrave) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE ALTRA (A TEXT)")});
  varGlobal().FlagAnomalia = kFalso;
  EXPECT_THROW(bottega.schermate.mostra(kSchermo, bottega.contesto), ProgramEnded);
  attendi(bottega, {kGrave});
  EXPECT_TRUE(bottega.utente.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
}

TEST_F(ArchivioVenduto, AllAperturaFlagAnomaliaSiAzzera) {
  varGlobal().FlagAnomalia = kVero;
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(varGlobal().FlagAnomalia, kFalso);
}

TEST_F(ArchivioVenduto, UnaColonnaCheMancaSiDiceColNomeDellaProceduraELElencoRestaVuoto) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE TAB_VENDUTO (Data TEXT)")});
  const SchermoGuidato schermo(bottega, kSchermo);
  attendi(bottega, {riquadro(QStringLiteral("RiempiGridCentral 3061 - *"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 2);
  EXPECT_FALSE(bottega.utente.terminated());
}

TEST_F(ArchivioVenduto, UnArchivioBloccatoSiDiceEVisualizzaTuttiRiprova) {
  registra(bottega, {{}});
  const SchermoGuidato schermo(bottega, kSchermo);
  {
    const AltroProgramma altro(varGlobal().NomeDB_Articoli, {QStringLiteral("BEGIN EXCLUSIVE")});
    schermo.clic(kTutti);
  }
  attendi(bottega, {riquadro(QStringLiteral("RiempiGridCentral 3260 - *"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 2);
  schermo.clic(kTutti);
  EXPECT_EQ(griglia(schermo).Rows(), 4);
}

// Search.

TEST_F(ArchivioVenduto, CercaDiceUnMessaggioPerOgniRigaELasciaScontoESommaComErano) {
  registra(bottega, {{.ean = QStringLiteral("A"), .sconto = 10}, {.ean = QStringLiteral("B"), .sconto = 20}});
  const SchermoGuidato schermo(bottega, kSchermo);
  periodoLargo(schermo);
  schermo.clic(kCerca);
  attendi(bottega, {kSenzaSconto, kSenzaSconto});
  EXPECT_EQ(colonna(schermo, 8), (QStringList{QStringLiteral("0.100"), QStringLiteral("0.200"), QString(),
                                              QStringLiteral("0.000")}));
  EXPECT_EQ(griglia(schermo).TextMatrix(4, 7), QStringLiteral("5.000"));
  EXPECT_EQ(griglia(schermo).Row(), 1);
}

TEST_F(ArchivioVenduto, DopoCercaVisualizzaTuttiRidaGliSconti) {
  registra(bottega, {{.sconto = 10}});
  const SchermoGuidato schermo(bottega, kSchermo);
  periodoLargo(schermo);
  schermo.clic(kCerca);
  attendi(bottega, {kSenzaSconto});
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 8), QStringLiteral("0.000"));
  schermo.clic(kTutti);
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 8), QStringLiteral("0.100"));
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 8), QStringLiteral("0.100"));
}

TEST_F(ArchivioVenduto, CercaPrendeIDueGiorniCompresiESoloQuelli) {
  registra(bottega, {{.data = QStringLiteral("20261119")},
                     {.data = QStringLiteral("20261120")},
                     {.data = QStringLiteral("20261121")},
                     {.data = QStringLiteral("20261122")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  scegliData(schermo, {}, QStringLiteral("20261120"));
  scegliData(schermo, QStringLiteral("Fine"), QStringLiteral("20261121"));
  schermo.clic(kCerca);
  attendi(bottega, {kSenzaSconto, kSenzaSconto});
  EXPECT_EQ(colonna(schermo, 1), (QStringList{QStringLiteral("20/11/2026"), QStringLiteral("21/11/2026"),
                                              QStringLiteral(" "), QStringLiteral("TOTALE")}));
}

TEST_F(ArchivioVenduto, GliOrariNonEntranoNellaRicerca) {
  registra(bottega, {{.data = oggi()}});
  const SchermoGuidato schermo(bottega, kSchermo);
  scegli(schermo, QStringLiteral("CmbOra"), QStringLiteral("23"));
  scegli(schermo, QStringLiteral("CmbMinFine"), QStringLiteral("59"));
  schermo.clic(kCerca);
  attendi(bottega, {kSenzaSconto});
  EXPECT_EQ(griglia(schermo).Rows(), 4);
}

TEST_F(ArchivioVenduto, UnInizioDopoLaFineDaUnElencoVuoto) {
  registra(bottega, {{.data = QStringLiteral("20261120")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  scegliData(schermo, {}, QStringLiteral("20261130"));
  scegliData(schermo, QStringLiteral("Fine"), QStringLiteral("20261101"));
  schermo.clic(kCerca);
  EXPECT_TRUE(bottega.utente.takeBoxes().empty());
  EXPECT_EQ(griglia(schermo).Rows(), 2);
  EXPECT_EQ(riga(schermo, 1).join(QString()), QString());
  EXPECT_FALSE(griglia(schermo).CellBackColor(1, 1).isValid());
}

TEST_F(ArchivioVenduto, UnElencoPiuLungoDopoUnoCortoNonTieneITotaliDiPrima) {
  registra(bottega,
           {{.ean = QStringLiteral("A")}, {.ean = QStringLiteral("B")}, {.ean = QStringLiteral("C")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  periodoLargo(schermo);
  scrivi(schermo, kCodEan, QStringLiteral("A"));
  schermo.clic(kCerca);
  schermo.clic(kReset);
  schermo.clic(kCerca);
  EXPECT_EQ(bottega.utente.takeBoxes().size(), 4U);
  EXPECT_EQ(griglia(schermo).Rows(), 6);
  EXPECT_FALSE(griglia(schermo).CellBackColor(3, 7).isValid());
  EXPECT_EQ(riga(schermo, 4).join(u'|'), QStringLiteral("| |||||||"));
  EXPECT_EQ(colonna(schermo, 8).last(), QStringLiteral("0.000"));
}

TEST_F(ArchivioVenduto, UnElencoPiuCortoNonTieneNellaRigaBiancaCioCheCEra) {
  registra(bottega, {{.ean = QStringLiteral("A")},
                     {.ean = QStringLiteral("B")},
                     {.ean = QStringLiteral("C")},
                     {.ean = QStringLiteral("D")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  periodoLargo(schermo);
  scrivi(schermo, kCodEan, QStringLiteral("D"));
  schermo.clic(kCerca);
  attendi(bottega, {kSenzaSconto});
  EXPECT_EQ(riga(schermo, 2).join(u'|'), QStringLiteral("| |||||||"));
  EXPECT_EQ(riga(schermo, 3).join(u'|'), QStringLiteral("|TOTALE||||1.250|2.000|2.500|0.000"));
}

TEST_F(ArchivioVenduto, EanEDescrizioneFiltranoInsieme) {
  registra(bottega, {{.ean = QStringLiteral("A1"), .descrizione = QStringLiteral("PANE")},
                     {.ean = QStringLiteral("A2"), .descrizione = QStringLiteral("LATTE")},
                     {.ean = QStringLiteral("B1"), .descrizione = QStringLiteral("PANE")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  periodoLargo(schermo);
  scrivi(schermo, kCodEan, QStringLiteral("a"));
  scrivi(schermo, kDescrizione, QStringLiteral("pan"));
  schermo.clic(kCerca);
  attendi(bottega, {kSenzaSconto});
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 2), QStringLiteral("A1"));
}

TEST_F(ArchivioVenduto, UnApostrofoNelFiltroSiDiceELElencoResta) {
  registra(bottega, {{}});
  const SchermoGuidato schermo(bottega, kSchermo);
  scrivi(schermo, kDescrizione, QStringLiteral("L'ORO"));
  schermo.clic(kCerca);
  attendi(bottega, {riquadro(QStringLiteral("3075 - *"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 4);
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 1), QStringLiteral("TOTALE"));
}

TEST_F(ArchivioVenduto, UnArchivioBloccatoInCercaSiDiceSenzaNomeDiProceduraELElencoResta) {
  registra(bottega, {{}});
  const SchermoGuidato schermo(bottega, kSchermo);
  periodoLargo(schermo);
  {
    const AltroProgramma altro(varGlobal().NomeDB_Articoli, {QStringLiteral("BEGIN EXCLUSIVE")});
    schermo.clic(kCerca);
  }
  attendi(bottega, {riquadro(QStringLiteral("3260 - *"), Icon::Critical)});
  EXPECT_EQ(griglia(schermo).Rows(), 4);
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 1), QStringLiteral("TOTALE"));
}

TEST_F(ArchivioVenduto, CercaMostra000PerUnImportoNullo) {
  registra(bottega, {{.importo = {}}});
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 7), QStringLiteral("0.000"));
  periodoLargo(schermo);
  schermo.clic(kCerca);
  attendi(bottega, {kSenzaSconto});
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 7), QStringLiteral("000"));
}

TEST_F(ArchivioVenduto, IPezziNulliSonoZeroELaMediaSiDice) {
  registra(bottega, {{.pezzi = {}}});
  const SchermoGuidato schermo(bottega, kSchermo);
  attendi(bottega, {riquadro(QStringLiteral("RiempiGridCentral 11 - Divisione per zero"), Icon::Critical)});
  periodoLargo(schermo);
  schermo.clic(kCerca);
  attendi(bottega, {riquadro(QStringLiteral("11 - Divisione per zero"), Icon::Critical), kSenzaSconto});
  EXPECT_EQ(griglia(schermo).TextMatrix(1, 6), QStringLiteral("0"));
  EXPECT_EQ(griglia(schermo).TextMatrix(3, 6), QStringLiteral("0.000"));
}

TEST_F(ArchivioVenduto, InCercaUnaDivisionePerZeroSiDiceESiVaAvanti) {
  registra(bottega, {{.ean = QStringLiteral("A"), .importo = 300, .pezzi = 0}, {.ean = QStringLiteral("B")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  bottega.utente.takeBoxes();
  periodoLargo(schermo);
  schermo.clic(kCerca);
  attendi(bottega,
          {riquadro(QStringLiteral("11 - Divisione per zero"), Icon::Critical), kSenzaSconto, kSenzaSconto});
  EXPECT_EQ(riga(schermo, 1).join(u'|'), QStringLiteral("1|20/11/2026|A|8001120000016|PANE||0|3.000|"));
  EXPECT_EQ(riga(schermo, 4).join(u'|'), QStringLiteral("|TOTALE||||1.250|2.000|5.500|0.000"));
}

TEST_F(ArchivioVenduto, SenzaTabellaCercaFinisceIlProgramma) {
  const SchermoGuidato schermo(bottega, kSchermo);
  bottega.esegui(QStringLiteral("DROP TABLE TAB_VENDUTO"));
  schermo.clic(kCerca);
  attendi(bottega, {kGrave});
  EXPECT_TRUE(bottega.utente.terminated());
}

TEST_F(ArchivioVenduto, SottoIMessaggiDiCercaLoSchermoSiDipingeELaListaArrivaIntera) {
  registra(bottega, vendutoDiProva(50));
  registra(bottega, {{.ean = QStringLiteral("Z1")}, {.ean = QStringLiteral("Z2")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  griglia(schermo).scrollToBottom();
  periodoLargo(schermo);
  scrivi(schermo, kCodEan, QStringLiteral("Z"));
  bottega.utente.onBox = [&](const Box&) {
    griglia(schermo).viewport()->repaint();
    schermo.finestra().resize(schermo.finestra().size() + QSize(1, 1));
    QCoreApplication::processEvents();
  };
  schermo.clic(kCerca);
  bottega.utente.onBox = nullptr;
  attendi(bottega, {kSenzaSconto, kSenzaSconto});
  EXPECT_EQ(griglia(schermo).Rows(), 5);
  EXPECT_EQ(griglia(schermo).model()->rowCount(), 4);
  EXPECT_EQ(griglia(schermo).TextMatrix(2, 2), QStringLiteral("Z2"));
}

TEST_F(ArchivioVenduto, PulisciSvuotaIFiltriELElencoResta) {
  registra(bottega, {{}});
  const SchermoGuidato schermo(bottega, kSchermo);
  scrivi(schermo, kCodEan, QStringLiteral("A"));
  scrivi(schermo, kDescrizione, QStringLiteral("B"));
  schermo.clic(kReset);
  EXPECT_EQ(schermo.testo(kCodEan), QString());
  EXPECT_EQ(schermo.testo(kDescrizione), QString());
  EXPECT_EQ(griglia(schermo).Rows(), 4);
}

// Grid, keys.

TEST_F(ArchivioVenduto, UnClicPortaLaSelezioneAllaColonna6DellaSuaRiga) {
  registra(bottega, {{.ean = QStringLiteral("A")}, {.ean = QStringLiteral("B")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  clicCella(schermo, 2, 3);
  EXPECT_EQ(griglia(schermo).Row(), 2);
  EXPECT_EQ(griglia(schermo).Col(), 6);
}

TEST_F(ArchivioVenduto, InvioNellaGrigliaSceglieComeIlClic) {
  registra(bottega, {{.ean = QStringLiteral("A")}, {.ean = QStringLiteral("B")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  griglia(schermo).setFocus();
  schermo.tasto(Qt::Key_Down);
  schermo.tasto(Qt::Key_Return);
  EXPECT_EQ(griglia(schermo).Row(), 2);
  EXPECT_EQ(griglia(schermo).Col(), 6);
  EXPECT_TRUE(bottega.utente.takeBoxes().empty()) << "no search";
}

TEST_F(ArchivioVenduto, InvioNeiCampiCerca) {
  registra(bottega, {{.data = QStringLiteral("20200101")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  for (const QString& campo :
       {QStringLiteral("CmbGiorno"), QStringLiteral("CmbSecFine"), kCodEan, kDescrizione}) {
    schermo.clic(kTutti);
    ASSERT_EQ(griglia(schermo).Rows(), 4);
    schermo.controllo(campo).setFocus();
    schermo.tasto(Qt::Key_Return);
    EXPECT_EQ(griglia(schermo).Rows(), 2) << campo.toStdString();
  }
}

TEST_F(ArchivioVenduto, EscChiudeLoSchermo) {
  const SchermoGuidato schermo(bottega, kSchermo);
  schermo.tasto(Qt::Key_Escape);
  EXPECT_FALSE(schermo.vivo());
}

TEST_F(ArchivioVenduto, EsciChiudeLoSchermoEAllaRiaperturaETuttoNuovo) {
  {
    const SchermoGuidato schermo(bottega, kSchermo);
    scrivi(schermo, kCodEan, QStringLiteral("A"));
    schermo.clic(kEsci);
    EXPECT_FALSE(schermo.vivo());
  }
  const SchermoGuidato ancora(bottega, kSchermo);
  EXPECT_EQ(ancora.testo(kCodEan), QString());
}

TEST_F(ArchivioVenduto, IlTabulatoreSegueLOrdineDelLavoro) {
  const SchermoGuidato schermo(bottega, kSchermo);
  QStringList giro;
  for (int i = 0; i < 20; ++i) {
    giro.append(schermo.finestra().focusWidget()->objectName());
    schermo.tasto(Qt::Key_Tab);
  }
  EXPECT_EQ(giro, QStringLiteral("CmbGiorno CmbMese CmbAnno CmbOra CmbMin CmbSec CmbGiornoFine CmbMeseFine "
                                 "CmbAnnoFine CmbOraFine CmbMinFine CmbSecFine vkTextBoxCodEan "
                                 "vkTextBoxDescrizione Cmd_Cerca Cmd_Reset MSFlexGridVenduto Cmd_Refresh "
                                 "Cmd_Export Cmd_Esci")
                      .split(u' '));
}

// Export.

TEST_F(ArchivioVenduto, LExportHaTutteLeRigheTotaliCompresiSenzaTestataNeNumero) {
  registra(bottega, {{.descrizione = QStringLiteral("CAFFÈ €"), .importo = 1250, .pezzi = 3, .sconto = 50}});
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(esportato(schermo),
            QByteArray("20/11/2026;A1;8001120000016;CAFF\xC8 \x80;4.167;3;12.500;0.500\r\n"
                       " ;;;;;;;\r\n"
                       "TOTALE;;;;4.167;3.000;12.500;0.500\r\n"));
  ASSERT_EQ(bottega.utente.requests().size(), 1U);
  EXPECT_EQ(bottega.utente.requests()[0].filter, QStringLiteral("csv (*.csv)|*.csv"));
}

TEST_F(ArchivioVenduto, LExportScriveITestiComeSonoAncheConSeparatoriEACapo) {
  registra(bottega, {{.descrizione = QStringLiteral("A;\"B\"\r\nC")}});
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_TRUE(
      esportato(schermo).startsWith("20/11/2026;A1;8001120000016;A;\"B\"\r\nC;1.250;2;2.500;0.000\r\n"));
}

TEST_F(ArchivioVenduto, SuUnPCItalianoElencoEdExportHannoLaVirgola) {
  const ConLocale italiano("it_IT");
  registra(bottega, {{.importo = 1250, .pezzi = 3, .sconto = 50}});
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(riga(schermo, 1).mid(5).join(u'|'), QStringLiteral("4,167|3|12,500|0,500"));
  EXPECT_EQ(esportato(schermo), QByteArray("20/11/2026;A1;8001120000016;PANE;4,167;3;12,500;0,500\r\n"
                                           " ;;;;;;;\r\n"
                                           "TOTALE;;;;4,167;3,000;12,500;0,500\r\n"));
}

TEST_F(ArchivioVenduto, LExportDiUnElencoVuotoScriveUnaRigaDiColonneVuote) {
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(esportato(schermo), QByteArray(";;;;;;;\r\n"));
}

TEST_F(ArchivioVenduto, UnExportAnnullatoOSenzaNomeNonScriveNulla) {
  const SchermoGuidato schermo(bottega, kSchermo);
  bottega.utente.chooses(std::nullopt).chooses(QString());
  schermo.clic(kExport);
  schermo.clic(kExport);
  EXPECT_TRUE(bottega.utente.takeBoxes().empty());
}

TEST_F(ArchivioVenduto, UnFileCheNonSiPuoScrivereSiDiceENonLasciaUnMozzicone) {
  registra(bottega, {{}});
  const SchermoGuidato schermo(bottega, kSchermo);
  bottega.utente.chooses(bottega.cartella.file(QStringLiteral("assente/v.csv")));
  schermo.clic(kExport);
  attendi(bottega, {riquadro(QStringLiteral("76 - Impossibile scrivere il file *"), Icon::Critical)});
  EXPECT_FALSE(QFile::exists(bottega.cartella.file(QStringLiteral("assente"))));
}

// Many rows, impatience.

TEST_F(ArchivioVenduto, UnPassaggioPerRecordELoSchermoNonSiDipinge) {
  registra(bottega, vendutoDiProva(50));
  const SchermoGuidato schermo(bottega, kSchermo);
  const int prima = bottega.utente.passes();
  bool ferma = true;
  bottega.utente.onPass = [&] { ferma = ferma && !griglia(schermo).Redraw(); };
  schermo.clic(kTutti);
  bottega.utente.onPass = nullptr;
  EXPECT_EQ(bottega.utente.passes() - prima, 50);
  EXPECT_TRUE(ferma);
  EXPECT_TRUE(griglia(schermo).Redraw());
}

TEST_F(ArchivioVenduto, ClicEscEChiusuraImbucatiAOgniPassaggioNonFannoNulla) {
  registra(bottega, vendutoDiProva(50));
  const SchermoGuidato schermo(bottega, kSchermo);
  const int prima = bottega.utente.passes();
  bottega.utente.onPass = [&] { schermo.impazienza(kTutti); };
  schermo.clic(kTutti);
  bottega.utente.onPass = nullptr;
  EXPECT_TRUE(schermo.vivo());
  EXPECT_EQ(bottega.utente.passes() - prima, 50);
  EXPECT_EQ(griglia(schermo).Rows(), 53);
}

TEST_F(ArchivioVenduto, CentomilaRigheSiMostranoTutteConITotali) {
  const std::vector<RigaRegistrata> righe = vendutoDiProva(100000);
  registra(bottega, righe);
  std::int64_t pezzi = 0;
  std::int64_t importi = 0;
  for (const RigaRegistrata& riga : righe) {
    pezzi += *riga.pezzi;
    importi += *riga.importo;
  }
  const SchermoGuidato schermo(bottega, kSchermo);
  EXPECT_EQ(griglia(schermo).Rows(), 100003);
  EXPECT_EQ(griglia(schermo).TextMatrix(100000, 0), QStringLiteral("100000"));
  EXPECT_EQ(griglia(schermo).TextMatrix(100002, 6), QStringLiteral("%1.000").arg(pezzi));
  EXPECT_EQ(griglia(schermo).TextMatrix(100002, 7),
            QStringLiteral("%1.%2").arg(importi / 100).arg(importi % 100 * 10, 3, 10, QLatin1Char('0')));
}

}  // namespace
