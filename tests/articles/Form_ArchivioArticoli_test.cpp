#include "articles/Form_ArchivioArticoli.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDialog>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>

#include "articles/article_database.h"
#include "articles/guided_archive.h"
#include "core/menu.h"

namespace {

const QString kSchermo = QStringLiteral("Form_ArchivioArticoli");
const QString kEan = QStringLiteral("vkTextBoxCodEan");
const QString kCodice = QStringLiteral("vkTextBoxCodArt");
const QString kDescrizione = QStringLiteral("vkTextBoxDesc");
const QString kPrezzo = QStringLiteral("vkTextBoxPrezzo");
const QString kReparto = QStringLiteral("vkTextBoxRep");
const QString kVarPrezzo = QStringLiteral("vkTextBoxVarPrz");
const QString kPrezzoZero = QStringLiteral("vkTextBoxPrz0");
const QString kGriglia = QStringLiteral("MSFlexGridArticoli");
const QString kCerca = QStringLiteral("Vmd_Cerca");
const QString kSalva = QStringLiteral("Cmd_Modifica");
const QString kPulisci = QStringLiteral("Cmd_Reset");
const QString kTutti = QStringLiteral("Cmd_Refresh");
const QString kAiuto = QStringLiteral("vkCommandHELP");
const QString kEsci = QStringLiteral("Cmd_Esci");

const QColor kBlu(0, 0, 255);
const QColor kArancio(255, 128, 0);

const Box kGrave = riquadro(
    QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!"),
    Icon::Critical);
const Box kSintassiRicerca = riquadro(QStringLiteral("3075 - *"), Icon::Critical);
const Box kModificaFallita =
    riquadro(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3075\n*"), Icon::Critical);
const Box kVarPrezzoErrato =
    riquadro(QStringLiteral("Attenzione var.prezzo deve essere S/s o N/n"), Icon::Information);
const QString kTestoReparto = QStringLiteral("Attenzione il reparto deve essere compreso tra 1 e 80 !!!!");

class ArchivioArticoli : public testing::Test {
 protected:
  ArchivioArticoli() {
    registraSchermateCore(bottega.schermate);
    registraArchivioArticoli(bottega.schermate);
  }

  /// A small archive: four articles, the third one marked by the import.
  void preparaArchivio() {
    bottega.apriArchivio();
    bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 4"));
    scriviArticoli(bottega, {{QStringLiteral("8003"), QStringLiteral("PANE"), 250, 2, true, false},
                             {QStringLiteral("8001"), QStringLiteral("PASTA"), 1250, 3, false, true},
                             {QStringLiteral("9001"), QStringLiteral("%SCONTO[*"), 1200, 2, false, false},
                             {QStringLiteral("7001"), QStringLiteral("LATTE"), 99, 80, true, true}});
    bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' where auto_id =3"));
  }
  ArchivioGuidato apri() {
    preparaArchivio();
    return ArchivioGuidato(bottega);
  }
  QString campo(const QString& nome, int slot) {
    return bottega.valore(
        QStringLiteral("SELECT %1 from TAB_ARTICOLI where auto_id =%2").arg(nome).arg(slot));
  }
  /// "12,50" with the locale's decimal sign.
  static QString prezzo(const char* testo) {
    return QString::fromLatin1(testo).replace(u',', QLocale().decimalPoint());
  }

  Bottega bottega;
};

// Opening.

TEST_F(ArchivioArticoli, AllAperturaMostraTuttoLArchivioColFuocoSullEan) {
  bottega.apriArchivio();
  const ArchivioGuidato schermo(bottega);
  EXPECT_EQ(schermo.finestra().windowTitle(),
            QStringLiteral(" PLU/ARTICOLI - ") + bottega.cartella.file(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(schermo.griglia().Rows(), 5001);
  EXPECT_EQ(schermo.griglia().TextMatrix(5000, 0), QStringLiteral("5000"));
  EXPECT_EQ(schermo.fuoco(), kEan);
  EXPECT_EQ(schermo.campi().join(QString()), QString());
  EXPECT_EQ(varGlobal().FlagVariazioni, 0);
}

TEST_F(ArchivioArticoli, DuranteIlRiempimentoCELaFinestraDiAttesaNonModaleELaClessidra) {
  preparaArchivio();
  int viste = 0;
  bottega.utente.onPass = [&] {
    const QWidget* attesa = bottega.schermate.trova(QStringLiteral("Form_ATTESA"));
    ASSERT_NE(attesa, nullptr);
    EXPECT_TRUE(attesa->isVisible());
    EXPECT_FALSE(attesa->isModal());
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    ++viste;
  };
  const ArchivioGuidato schermo(bottega);
  bottega.utente.onPass = nullptr;
  EXPECT_EQ(viste, 4);
  EXPECT_EQ(bottega.schermate.trova(QStringLiteral("Form_ATTESA")), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ArchivioArticoli, UnArchivioAssegnatoAccendeLeVariazioniEAllaRiaperturaSiRilegge) {
  preparaArchivio();
  bottega.esegui(QStringLiteral("UPDATE TAB_VARIE SET NomeCassa ='CASSA 1'"));
  varGlobal().FlagAnomalia = kVero;
  {
    const ArchivioGuidato schermo(bottega);
    EXPECT_EQ(varGlobal().FlagVariazioni, 1);
    EXPECT_EQ(varGlobal().FlagAnomalia, kFalso);
    schermo.clic(kEsci);
  }
  bottega.esegui(QStringLiteral("UPDATE TAB_VARIE SET NomeCassa ='NON_ASSEGNATO'"));
  const ArchivioGuidato schermo(bottega);
  EXPECT_EQ(varGlobal().FlagVariazioni, 0);
}

TEST_F(ArchivioArticoli, SenzaLaTabellaDelleImpostazioniSiDiceESiLavora) {
  preparaArchivio();
  bottega.esegui(QStringLiteral("DROP TABLE TAB_VARIE"));
  const ArchivioGuidato schermo(bottega);
  attendi(bottega, {riquadro(QStringLiteral("CheckTabVarie 3078 - *"), Icon::Critical)});
  EXPECT_EQ(varGlobal().FlagVariazioni, 0);
  EXPECT_EQ(schermo.griglia().Rows(), 5);
}

TEST_F(ArchivioArticoli, SenzaLaTabellaDegliArticoliIlProgrammaTerminaSenzaLasciareNulla) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_THROW(bottega.schermate.carica(kSchermo, bottega.contesto), ProgramEnded);
  attendi(bottega, {kGrave});
  EXPECT_TRUE(bottega.utente.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  EXPECT_EQ(bottega.schermate.trova(QStringLiteral("Form_ATTESA")), nullptr);
  EXPECT_EQ(bottega.schermate.trova(kSchermo), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ArchivioArticoli, LeTestateLeLarghezzeEIColori) {
  const ArchivioGuidato schermo = apri();
  const FlexGrid& griglia = schermo.griglia();
  EXPECT_EQ(schermo.riga(0),
            QStringLiteral("N.|COD. EAN|COD. ARTICOLI|DESCRIZIONE |PREZZO|N.REP|VAR.PRZ|PREZZO 0"));
  const std::array larghezze{500, 1600, 1600, 2600, 1100, 900, 1000, 1000};
  ASSERT_EQ(griglia.Cols(), 8);
  for (int colonna = 0; colonna < 8; ++colonna) {
    EXPECT_EQ(griglia.ColWidth(colonna), larghezze.at(static_cast<std::size_t>(colonna)));
    EXPECT_EQ(griglia.CellForeColor(0, colonna), colonna < 6 ? kBlu : QColor());
    const bool segnata = colonna >= 1 && colonna <= 5;
    EXPECT_EQ(griglia.CellBackColor(3, colonna), segnata ? kArancio : QColor());
    EXPECT_EQ(griglia.CellBackColor(1, colonna), segnata ? QColor(Qt::white) : QColor());
  }
}

TEST_F(ArchivioArticoli, LaTestataEAltaSeicentoTwipELoSfondoEGialloChiaro) {
  const ArchivioGuidato schermo = apri();
  EXPECT_EQ(schermo.griglia().horizontalHeader()->height(), 40);
  const QModelIndex cella = schermo.griglia().model()->index(0, 0);
  EXPECT_EQ(cella.data(Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 255, 224));
}

TEST_F(ArchivioArticoli, LeCelleHannoIlLoroAllineamento) {
  const ArchivioGuidato schermo = apri();
  const std::array versi{Qt::AlignHCenter, Qt::AlignLeft,  Qt::AlignLeft,    Qt::AlignLeft,
                         Qt::AlignRight,   Qt::AlignRight, Qt::AlignHCenter, Qt::AlignHCenter};
  for (int colonna = 0; colonna < 8; ++colonna)
    EXPECT_EQ(schermo.griglia().CellAlignment(1, colonna) & Qt::AlignHorizontal_Mask,
              versi.at(static_cast<std::size_t>(colonna)));
}

TEST_F(ArchivioArticoli, LeRigheMostranoPrezziELettere) {
  const ArchivioGuidato schermo = apri();
  EXPECT_EQ(schermo.riga(1), prezzo("1|8003|A1|PANE|2,50|2|S|N"));
  EXPECT_EQ(schermo.riga(4), prezzo("4|7001|A4|LATTE|0,99|80|S|S"));
}

TEST_F(ArchivioArticoli, UnaTabellaVuotaLasciaUnaRigaVuota) {
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI"));
  const ArchivioGuidato schermo(bottega);
  EXPECT_EQ(schermo.griglia().Rows(), 2);
  EXPECT_EQ(schermo.riga(1), QStringLiteral("|||||||"));
  schermo.clicCella(1, 2);
  EXPECT_EQ(schermo.campi().join(QString()), QString());
}

TEST_F(ArchivioArticoli, IComandiHannoLeLoroScritte) {
  const ArchivioGuidato schermo = apri();
  EXPECT_EQ(schermo.testo(kCerca), QStringLiteral("Cerca"));
  EXPECT_EQ(schermo.testo(kSalva), QStringLiteral("Salva Modifiche"));
  EXPECT_EQ(schermo.testo(kPulisci), QStringLiteral("Pulisci"));
  EXPECT_EQ(schermo.testo(kTutti), QStringLiteral("Visualizza Tutti"));
  EXPECT_EQ(schermo.testo(QStringLiteral("Cmd_Export")), QStringLiteral("Export Articoli"));
  EXPECT_EQ(schermo.testo(kAiuto), QStringLiteral("     Help        Codice  EAN"));
  EXPECT_EQ(schermo.testo(kEsci), QStringLiteral("Esci"));
  EXPECT_FALSE(schermo.abilitato(QStringLiteral("vkTextBoxPLUid")));
}

TEST_F(ArchivioArticoli, IlTabulatoreVaDaiCampiAiComandiAllaGriglia) {
  const ArchivioGuidato schermo = apri();
  QStringList giro;
  for (int i = 0; i < 15; ++i) {
    giro += schermo.fuoco();
    schermo.tasto(Qt::Key_Tab);
  }
  EXPECT_EQ(giro,
            (QStringList{kEan, kCodice, kDescrizione, kPrezzo, kReparto, kVarPrezzo, kPrezzoZero, kCerca,
                         kTutti, kPulisci, kSalva, QStringLiteral("Cmd_Export"), kAiuto, kEsci, kGriglia}));
  EXPECT_EQ(schermo.fuoco(), kEan);
}

TEST_F(ArchivioArticoli, StaInUnoSchermoDaMilleventiquattroSenzaTagliareScritte) {
  const ArchivioGuidato schermo = apri();
  schermo.finestra().resize(1016, 732);
  QCoreApplication::processEvents();
  EXPECT_LE(schermo.finestra().width(), 1016);
  EXPECT_LE(schermo.finestra().height(), 732);
  for (const QPushButton* tasto : schermo.finestra().findChildren<QPushButton*>())
    EXPECT_GE(tasto->width(), tasto->sizeHint().width()) << tasto->objectName().toStdString();
  EXPECT_GE(schermo.griglia().columnWidth(0),
            schermo.griglia().fontMetrics().horizontalAdvance(u"5000"_qs) + 6);
}

// Search.

TEST_F(ArchivioArticoli, UnaRicercaSenzaCampiElencaTuttoNellOrdineDellaTabellaSenzaLettereNeColori) {
  const ArchivioGuidato schermo = apri();
  schermo.clic(kCerca);
  EXPECT_EQ(schermo.colonna(1), (QStringList{QStringLiteral("8003"), QStringLiteral("8001"),
                                             QStringLiteral("9001"), QStringLiteral("7001")}));
  EXPECT_EQ(schermo.riga(1), prezzo("1|8003|A1|PANE|2,50|2||"));
  for (int colonna = 0; colonna < 8; ++colonna) {
    EXPECT_EQ(schermo.griglia().CellBackColor(3, colonna), QColor());
    EXPECT_EQ(schermo.griglia().CellBackColor(1, colonna), QColor());
  }
}

TEST_F(ArchivioArticoli, InvioInUnCampoCercaNellOrdineDellEan) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kEan, QStringLiteral("80"));
  schermo.tasto(Qt::Key_Return);
  EXPECT_TRUE(schermo.vivo());
  EXPECT_EQ(schermo.colonna(1), (QStringList{QStringLiteral("8001"), QStringLiteral("8003")}));
  EXPECT_EQ(schermo.fuoco(), kEan);
}

TEST_F(ArchivioArticoli, OgniCampoHaLaSuaRicerca) {
  const ArchivioGuidato schermo = apri();
  const auto trova = [&](const QString& nome, const char16_t* tasti) {
    schermo.clic(kPulisci);
    schermo.scrivi(nome, QString::fromUtf16(tasti));
    schermo.tasto(Qt::Key_Enter);
    return schermo.colonna(0).join(u' ');
  };
  EXPECT_EQ(trova(kCodice, u"a2"), QStringLiteral("2"));
  EXPECT_EQ(trova(kDescrizione, u"pa"), QStringLiteral("2 1"));
  EXPECT_EQ(trova(kDescrizione, u"*t"), QStringLiteral("4 2 3"));
  EXPECT_EQ(trova(kDescrizione, u"%"), QStringLiteral("3"));
  EXPECT_EQ(trova(kPrezzo, u"12"), QStringLiteral("2 3"));
  EXPECT_EQ(trova(kPrezzo, u"12,50"), QStringLiteral("2 3"));
  EXPECT_EQ(trova(kReparto, u"2"), QStringLiteral("1 3"));
  EXPECT_EQ(trova(kVarPrezzo, u"s"), QStringLiteral("1 2 3 4"));
}

TEST_F(ArchivioArticoli, PiuCampiStringonoLaRicerca) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kDescrizione, QStringLiteral("pa"));
  schermo.scrivi(kPrezzo, QStringLiteral("3"));
  schermo.clic(kCerca);
  EXPECT_EQ(schermo.colonna(0), QStringList{QStringLiteral("2")});
}

TEST_F(ArchivioArticoli, UnaRicercaSenzaEsitoLasciaUnaRigaVuota) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kEan, QStringLiteral("1"));
  schermo.clic(kCerca);
  EXPECT_EQ(schermo.griglia().Rows(), 2);
  EXPECT_EQ(schermo.riga(1), QStringLiteral("|||||||"));
}

class ApostrofoNellaRicerca : public ArchivioArticoli, public testing::WithParamInterface<QString> {};

TEST_P(ApostrofoNellaRicerca, SiDiceELElencoRestaComEra) {
  const ArchivioGuidato schermo = apri();
  const QStringList prima = schermo.colonna(0);
  schermo.scrivi(GetParam(), QStringLiteral("L'A"));
  schermo.tasto(Qt::Key_Return);
  attendi(bottega, {kSintassiRicerca});
  EXPECT_FALSE(bottega.utente.terminated());
  EXPECT_EQ(schermo.colonna(0), prima);
  EXPECT_TRUE(schermo.griglia().Redraw());
}
INSTANTIATE_TEST_SUITE_P(Campi, ApostrofoNellaRicerca, testing::Values(kEan, kCodice, kDescrizione));

class SegniNellaRicerca : public ArchivioArticoli, public testing::WithParamInterface<QString> {};

TEST_P(SegniNellaRicerca, VirgolettePercentiEFiniRigaNonTrovanoNullaENonFannoDanno) {
  const ArchivioGuidato schermo = apri();
  for (const auto* segni : {u"\"", u"%%", u"\n", u"]", u"\\", u";--"}) {
    schermo.clic(kPulisci);
    schermo.controllo<QLineEdit>(GetParam()).insert(QString::fromUtf16(segni));
    schermo.clic(kCerca);
    EXPECT_EQ(schermo.riga(1), QStringLiteral("|||||||")) << QString::fromUtf16(segni).toStdString();
  }
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT * from TAB_ARTICOLI")), 4);
}
INSTANTIATE_TEST_SUITE_P(Campi, SegniNellaRicerca, testing::Values(kEan, kCodice, kDescrizione));

TEST_F(ArchivioArticoli, FraParentesiQuadreStaUnInsiemeDiCaratteri) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kDescrizione, QStringLiteral("[pl]a[st]"));
  schermo.clic(kCerca);
  EXPECT_EQ(schermo.colonna(0).join(u' '), QStringLiteral("4 2"));
}

TEST_F(ArchivioArticoli, UnaParentesiQuadraApertaSiDiceELElencoRestaComEra) {
  const ArchivioGuidato schermo = apri();
  const QStringList prima = schermo.colonna(0);
  schermo.scrivi(kDescrizione, QStringLiteral("P["));
  schermo.clic(kCerca);
  attendi(bottega, {kSintassiRicerca});
  EXPECT_FALSE(bottega.utente.terminated());
  EXPECT_EQ(schermo.colonna(0), prima);
}

TEST_F(ArchivioArticoli, LAsteriscoTrovaTutto) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kEan, QStringLiteral("*"));
  schermo.clic(kCerca);
  EXPECT_EQ(schermo.colonna(0).join(u' '), QStringLiteral("4 2 1 3"));
}

TEST_F(ArchivioArticoli, UnArchivioGuastatoSottoLaRicercaTerminaIlProgramma) {
  const ArchivioGuidato schermo = apri();
  bottega.esegui(QStringLiteral("DROP TABLE TAB_ARTICOLI"));
  schermo.clic(kCerca);
  attendi(bottega, {kGrave});
  EXPECT_TRUE(bottega.utente.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
}

// Picking a row.

TEST_F(ArchivioArticoli, UnClicSullaGrigliaCopiaLaRigaNeiCampiELaSceglie) {
  const ArchivioGuidato schermo = apri();
  schermo.clicCella(2, 3);
  EXPECT_EQ(schermo.campi().join(u'|'), prezzo("2|8001|A2|PASTA|12,50|3|N|S"));
  EXPECT_EQ(schermo.griglia().Row(), 2);
  const QModelIndexList scelte = schermo.griglia().selectionModel()->selectedIndexes();
  EXPECT_EQ(scelte.size(), 8);
  for (const QModelIndex& cella : scelte) EXPECT_EQ(cella.row(), 1);
}

TEST_F(ArchivioArticoli, InvioSullaGrigliaCopiaLaRigaSenzaCercare) {
  const ArchivioGuidato schermo = apri();
  schermo.clicCella(1, 1);
  schermo.tasto(Qt::Key_Down);
  EXPECT_EQ(schermo.testo(kEan), QStringLiteral("8003"));
  schermo.tasto(Qt::Key_Return);
  EXPECT_EQ(schermo.testo(kEan), QStringLiteral("8001"));
  EXPECT_EQ(schermo.griglia().Rows(), 5);
  EXPECT_EQ(schermo.griglia().TextMatrix(1, 6), QStringLiteral("S"));
}

TEST_F(ArchivioArticoli, UnValorePiuLungoDelCampoSiMostraInteroENonSiSalvaTagliato) {
  preparaArchivio();
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Reparto =100 where auto_id =1"));
  const ArchivioGuidato schermo(bottega);
  schermo.clicCella(1, 1);
  EXPECT_EQ(schermo.testo(kReparto), QStringLiteral("100"));
  schermo.clic(kSalva);
  attendi(bottega, {riquadro(kTestoReparto, Icon::Information)});
  schermo.clic(kPulisci);
  schermo.scrivi(kReparto, QStringLiteral("100"));
  EXPECT_EQ(schermo.testo(kReparto), QStringLiteral("10"));
}

// Save.

TEST_F(ArchivioArticoli, UnaCorrezioneSiSalvaRilegendoETornandoAllaRiga) {
  const ArchivioGuidato schermo = apri();
  schermo.clicCella(2, 2);
  schermo.scrivi(kDescrizione, QStringLiteral("pasta all'uovo").remove(u'\''));
  schermo.scrivi(kPrezzo, QStringLiteral("3,5"));
  schermo.scrivi(kVarPrezzo, QStringLiteral("s"));
  schermo.scrivi(kPrezzoZero, QStringLiteral("n"));
  schermo.clic(kSalva);
  EXPECT_EQ(schermo.riga(2), prezzo("2|8001|A2|PASTA ALLUOVO|3,50|3|S|N"));
  EXPECT_EQ(campo(QStringLiteral("Prezzo"), 2), QStringLiteral("350"));
  EXPECT_EQ(schermo.griglia().Row(), 2);
  EXPECT_EQ(schermo.fuoco(), kGriglia);
  EXPECT_EQ(bottega.area.level(), 0);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ArchivioArticoli, UnaRigaSegnataPerdeIlColoreDopoUnSalvataggio) {
  const ArchivioGuidato schermo = apri();
  EXPECT_EQ(schermo.griglia().CellBackColor(3, 1), kArancio);
  schermo.clicCella(3, 1);
  schermo.clic(kSalva);
  for (int colonna = 1; colonna <= 5; ++colonna)
    EXPECT_EQ(schermo.griglia().CellBackColor(3, colonna), QColor(Qt::white));
  EXPECT_EQ(campo(QStringLiteral("Filler"), 3), QStringLiteral(" "));
}

TEST_F(ArchivioArticoli, UnaRigaTrovataSiSalvaSoloDopoAverScrittoLeLettere) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kEan, QStringLiteral("8001"));
  schermo.clic(kCerca);
  schermo.clicCella(1, 1);
  EXPECT_EQ(schermo.testo(kVarPrezzo), QString());
  schermo.clic(kSalva);
  attendi(bottega, {kVarPrezzoErrato});
  EXPECT_EQ(schermo.griglia().Rows(), 2);
  schermo.scrivi(kVarPrezzo, QStringLiteral("S"));
  schermo.scrivi(kPrezzoZero, QStringLiteral("S"));
  schermo.clic(kSalva);
  EXPECT_EQ(schermo.riga(2), prezzo("2|8001|A2|PASTA|12,50|3|S|S"));
}

TEST_F(ArchivioArticoli, SenzaRigaSceltaECampiVuotiQuattroMessaggiInFila) {
  const ArchivioGuidato schermo = apri();
  schermo.clic(kSalva);
  attendi(bottega,
          {riquadro(QStringLiteral("Attenzione il campo DESCRIZIONE non e' valorizzato"), Icon::Information),
           riquadro(QStringLiteral("Attenzione il campo PREZZO non e' valorizzato"), Icon::Information),
           riquadro(kTestoReparto, Icon::Information), kVarPrezzoErrato});
}

TEST_F(ArchivioArticoli, ConIlRepartoZeroIlSalvataggioDiceIlReparto) {
  const ArchivioGuidato schermo = apri();
  schermo.clicCella(1, 1);
  schermo.scrivi(kReparto, QStringLiteral("0"));
  schermo.clic(kSalva);
  attendi(bottega, {riquadro(kTestoReparto, Icon::Information)});
  EXPECT_EQ(campo(QStringLiteral("Reparto"), 1), QStringLiteral("2"));
}

TEST_F(ArchivioArticoli, SenzaUnaRigaSceltaLIstruzioneFallisce) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kDescrizione, QStringLiteral("X"));
  schermo.scrivi(kPrezzo, QStringLiteral("1"));
  schermo.scrivi(kReparto, QStringLiteral("1"));
  schermo.scrivi(kVarPrezzo, QStringLiteral("N"));
  schermo.clic(kSalva);
  attendi(bottega, {kModificaFallita});
  EXPECT_EQ(schermo.fuoco(), kGriglia);
  EXPECT_EQ(bottega.righe(QStringLiteral("SELECT * from TAB_ARTICOLI where Descrizione ='X'")), 0);
}

TEST_F(ArchivioArticoli, UnApostrofoNellaDescrizioneAnnullaELaGrigliaResta) {
  const ArchivioGuidato schermo = apri();
  schermo.clicCella(1, 1);
  schermo.scrivi(kDescrizione, QStringLiteral("L'ACQUA"));
  schermo.clic(kSalva);
  attendi(bottega, {kModificaFallita});
  EXPECT_EQ(campo(QStringLiteral("Descrizione"), 1), QStringLiteral("PANE"));
  EXPECT_EQ(schermo.riga(1), prezzo("1|8003|A1|PANE|2,50|2|S|N"));
  EXPECT_EQ(schermo.griglia().Row(), 1);
  EXPECT_EQ(schermo.testo(kDescrizione), QStringLiteral("L'ACQUA"));
}

TEST_F(ArchivioArticoli, UnPrezzoFuoriMisuraSalvatoSenzaLasciareIlCampoSiDiceSenzaScrivere) {
  const ArchivioGuidato schermo = apri();
  schermo.clicCella(1, 1);
  schermo.scrivi(kPrezzo, QStringLiteral("99999999"));
  // Pressed by an aid for the disabled, say: the focus stays in the field, which is not checked.
  schermo.controllo<QPushButton>(kSalva).click();
  attendi(bottega, {{QStringLiteral("Error 6 (*"), Icon::None, {}, Buttons::Ok}});
  EXPECT_EQ(campo(QStringLiteral("Prezzo"), 1), QStringLiteral("250"));
}

// The other commands.

TEST_F(ArchivioArticoli, PulisciVuotaICampiETornaSullEan) {
  const ArchivioGuidato schermo = apri();
  schermo.clicCella(1, 1);
  schermo.clic(kPulisci);
  EXPECT_EQ(schermo.campi().join(QString()), QString());
  EXPECT_EQ(schermo.fuoco(), kEan);
  EXPECT_EQ(schermo.griglia().Rows(), 5);
}

TEST_F(ArchivioArticoli, VisualizzaTuttiRileggeLArchivioConLettereEColori) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kEan, QStringLiteral("9"));
  schermo.clic(kCerca);
  EXPECT_EQ(schermo.griglia().Rows(), 2);
  schermo.clic(kTutti);
  EXPECT_EQ(schermo.griglia().Rows(), 5);
  EXPECT_EQ(schermo.riga(1), prezzo("1|8003|A1|PANE|2,50|2|S|N"));
  EXPECT_EQ(schermo.griglia().CellBackColor(3, 2), kArancio);
  EXPECT_EQ(schermo.testo(kEan), QStringLiteral("9"));
}

TEST_F(ArchivioArticoli, BloccaComandiSpegneSeiComandiELasciaEsci) {
  const ArchivioGuidato schermo = apri();
  auto& archivio = static_cast<Form_ArchivioArticoli&>(schermo.finestra());
  const QStringList comandi{QStringLiteral("Cmd_Export"), kSalva, kTutti, kPulisci, kAiuto, kCerca};
  archivio.BloccaComandi(true);
  for (const QString& nome : comandi) EXPECT_FALSE(schermo.abilitato(nome)) << nome.toStdString();
  EXPECT_TRUE(schermo.abilitato(kEsci));
  archivio.BloccaComandi(false);
  for (const QString& nome : comandi) EXPECT_TRUE(schermo.abilitato(nome)) << nome.toStdString();
}

TEST_F(ArchivioArticoli, SenzaIlFileDiAiutoSiDiceENonSiApreNulla) {
  bottega.contesto.cartella = bottega.cartella.path();
  bottega.schermate.registra(QStringLiteral("Form_Help_CodiceEAN"), [](Contesto&) -> QWidget* {
    ADD_FAILURE() << "opened";
    return new QDialog;
  });
  bottega.apriVuoto({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position,Codice_EAN,Codice_Articolo,"
                                    "Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero)"),
                     QStringLiteral("CREATE TABLE TAB_VARIE (NomeCassa TEXT)")});
  const ArchivioGuidato schermo(bottega);
  schermo.clic(kAiuto);
  attendi(bottega, {riquadro(QStringLiteral("Attenzione il file di Help per Codice EAN non presente"),
                             Icon::Critical)});
}

TEST_F(ArchivioArticoli, ConIlFileDiAiutoSiApreLaSuaSchermataModale) {
  bottega.apriArchivio();
  bottega.contesto.cartella = bottega.cartella.path();
  bottega.cartella.write(QStringLiteral("Help_CodiceEAN.rtf"), "{\\rtf1 EAN}");
  int aperture = 0;
  bottega.schermate.registra(QStringLiteral("Form_Help_CodiceEAN"), [&](Contesto&) -> QWidget* {
    auto* aiuto = new QDialog;
    QMetaObject::invokeMethod(
        aiuto,
        [&aperture, aiuto] {
          EXPECT_TRUE(aiuto->isModal());
          ++aperture;
          aiuto->reject();
        },
        Qt::QueuedConnection);
    return aiuto;
  });
  const ArchivioGuidato schermo(bottega);
  schermo.clic(kAiuto);
  EXPECT_EQ(aperture, 1);
  EXPECT_TRUE(schermo.vivo());
}

TEST_F(ArchivioArticoli, EsciChiudeERiportaAllaGestione) {
  bottega.schermate.registra(QStringLiteral("Form_GestioneMMC"), [](Contesto&) { return new QWidget; });
  const ArchivioGuidato schermo = apri();
  schermo.clic(kEsci);
  EXPECT_FALSE(schermo.vivo());
  ASSERT_NE(bottega.schermate.trova(QStringLiteral("Form_GestioneMMC")), nullptr);
  EXPECT_TRUE(bottega.schermate.trova(QStringLiteral("Form_GestioneMMC"))->isVisible());
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
}

TEST_F(ArchivioArticoli, EscChiudeSenzaControllareIlCampoCheSiStavaScrivendo) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kReparto, QStringLiteral("99"));
  schermo.tasto(Qt::Key_Escape);
  EXPECT_FALSE(schermo.vivo());
}

TEST_F(ArchivioArticoli, ClicEscEChiusuraImbucatiAOgniPassaggioNonFannoNulla) {
  const ArchivioGuidato schermo = apri();
  schermo.clicCella(1, 1);
  schermo.scrivi(kDescrizione, QStringLiteral("IMPAZIENZA"));
  bottega.utente.onPass = [&] {
    for (const QString& nome : {kSalva, kCerca, kPulisci, kEsci})
      for (const QEvent::Type tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
        QCoreApplication::postEvent(
            &schermo.controllo(nome),
            new QMouseEvent(tipo, {5, 5}, schermo.controllo(nome).mapToGlobal(QPointF(5, 5)), Qt::LeftButton,
                            tipo == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                            Qt::NoModifier));
    QCoreApplication::postEvent(&schermo.finestra(),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    QCoreApplication::postEvent(&schermo.finestra(), new QCloseEvent);
  };
  schermo.clic(kTutti);
  bottega.utente.onPass = nullptr;
  QCoreApplication::processEvents();
  EXPECT_TRUE(schermo.vivo());
  EXPECT_EQ(schermo.testo(kDescrizione), QStringLiteral("IMPAZIENZA"));
  EXPECT_EQ(campo(QStringLiteral("Descrizione"), 1), QStringLiteral("PANE"));
  EXPECT_EQ(schermo.griglia().Rows(), 5);
}

// Keys and leaving.

TEST_F(ArchivioArticoli, ITastiSbagliatiNonEntranoNeiCampi) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kPrezzo, QStringLiteral("1234,567"));
  EXPECT_EQ(schermo.testo(kPrezzo), QStringLiteral("1234,56"));
  schermo.scrivi(kPrezzo, QStringLiteral("1.5x-"));
  EXPECT_EQ(schermo.testo(kPrezzo), QStringLiteral("15"));
  schermo.scrivi(kReparto, QStringLiteral("a-7,"));
  EXPECT_EQ(schermo.testo(kReparto), QStringLiteral("7"));
  schermo.scrivi(kVarPrezzo, QStringLiteral("xs"));
  EXPECT_EQ(schermo.testo(kVarPrezzo), QStringLiteral("s"));
  schermo.scrivi(kPrezzoZero, QStringLiteral("1N"));
  EXPECT_EQ(schermo.testo(kPrezzoZero), QStringLiteral("N"));
}

TEST_F(ArchivioArticoli, NeiTestiEntraTuttoFinoAllaLunghezzaDelCampo) {
  const ArchivioGuidato schermo = apri();
  const QString segni = QStringLiteral("'\"%*[]#?;-- 12345678901234567890");
  schermo.scrivi(kEan, segni);
  EXPECT_EQ(schermo.testo(kEan), segni.left(13));
  schermo.scrivi(kCodice, segni);
  EXPECT_EQ(schermo.testo(kCodice), segni.left(13));
  schermo.scrivi(kDescrizione, segni);
  EXPECT_EQ(schermo.testo(kDescrizione), segni.left(30));
  schermo.scrivi(kPrezzo, QStringLiteral("123456789"));
  EXPECT_EQ(schermo.testo(kPrezzo), QStringLiteral("12345678"));
  schermo.scrivi(kPrezzo, QStringLiteral("1"));
}

TEST_F(ArchivioArticoli, ConDueDecimaliSoloIlTastoIndietroCambiaIlPrezzo) {
  const ArchivioGuidato schermo = apri();
  auto& casella = schermo.controllo<QLineEdit>(kPrezzo);
  schermo.scrivi(kPrezzo, QStringLiteral("12,50"));
  casella.selectAll();
  QTest::keyClick(&casella, Qt::Key_X, Qt::ControlModifier);
  QTest::keyClick(&casella, Qt::Key_9);
  EXPECT_EQ(schermo.testo(kPrezzo), QStringLiteral("12,50"));
  QTest::keyClick(&casella, Qt::Key_Backspace);
  EXPECT_EQ(schermo.testo(kPrezzo), QString());
}

TEST_F(ArchivioArticoli, AnnullareLaScritturaNonCambiaIlPrezzo) {
  const ArchivioGuidato schermo = apri();
  auto& casella = schermo.controllo<QLineEdit>(kPrezzo);
  schermo.clicCella(1, 1);
  schermo.scrivi(kPrezzo, QStringLiteral("7"));
  QTest::keyClick(&casella, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(schermo.testo(kPrezzo), QStringLiteral("7"));
}

TEST_F(ArchivioArticoli, TagliareUnRepartoSiPuo) {
  const ArchivioGuidato schermo = apri();
  auto& casella = schermo.controllo<QLineEdit>(kReparto);
  schermo.scrivi(kReparto, QStringLiteral("12"));
  casella.selectAll();
  QTest::keyClick(&casella, Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(schermo.testo(kReparto), QString());
}

TEST_F(ArchivioArticoli, CioCheSiIncollaPassaDallaStessaRegolaCarattereACarattere) {
  const ArchivioGuidato schermo = apri();
  const auto incolla = [&](const QString& nome, const QString& testo) {
    QGuiApplication::clipboard()->setText(testo);
    auto& casella = schermo.controllo<QLineEdit>(nome);
    QTest::mouseClick(&casella, Qt::LeftButton);
    casella.selectAll();
    QTest::keyClick(&casella, Qt::Key_V, Qt::ControlModifier);
    return casella.text();
  };
  EXPECT_EQ(incolla(kPrezzo, QStringLiteral("1.23,4567")), QStringLiteral("123,45"));
  EXPECT_EQ(incolla(kReparto, QStringLiteral("-1 2")), QStringLiteral("1"));
  EXPECT_EQ(incolla(kVarPrezzo, QStringLiteral("s")), QStringLiteral("s"));
  EXPECT_EQ(incolla(kPrezzoZero, QStringLiteral("x")), QString());
}

TEST_F(ArchivioArticoli, LasciandoIlPrezzoConDueVirgoleSiDiceEDiventaZero) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kPrezzo, QStringLiteral("1,,"));
  schermo.tasto(Qt::Key_Tab);
  attendi(bottega, {riquadro(QStringLiteral("Attenzione il valore immesso non è di tipo numerico !!!"),
                             Icon::Critical)});
  EXPECT_EQ(schermo.testo(kPrezzo), QStringLiteral("0"));
  EXPECT_EQ(schermo.fuoco(), kReparto);
}

TEST_F(ArchivioArticoli, LasciandoUnPrezzoTroppoAltoSiDiceEDiventaZero) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kPrezzo, QStringLiteral("100000"));
  schermo.clic(kReparto);
  attendi(bottega, {riquadro(QStringLiteral("Attenzione il valore immesso > 99999.99!"), Icon::Critical)});
  EXPECT_EQ(schermo.testo(kPrezzo), QStringLiteral("0"));
}

TEST_F(ArchivioArticoli, LasciandoUnRepartoTroppoAltoSiDiceESiSvuota) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kReparto, QStringLiteral("81"));
  schermo.tasto(Qt::Key_Tab);
  attendi(bottega, {riquadro(kTestoReparto, Icon::Critical)});
  EXPECT_EQ(schermo.testo(kReparto), QString());
}

TEST_F(ArchivioArticoli, LasciandoRepartoZeroEPrezzoVuotoNullaSiDice) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kReparto, QStringLiteral("0"));
  schermo.scrivi(kPrezzo, QString());
  schermo.tasto(Qt::Key_Tab);
  EXPECT_EQ(schermo.testo(kReparto), QStringLiteral("0"));
}

TEST_F(ArchivioArticoli, PassandoAUnAltraFinestraIlCampoNonSiControlla) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kReparto, QStringLiteral("81"));
  QWidget altra;
  altra.show();
  altra.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&altra));
  EXPECT_EQ(schermo.testo(kReparto), QStringLiteral("81"));
}

TEST_F(ArchivioArticoli, UnClicSuUnComandoCheFaLasciareIlCampoNonLoLasciaPremuto) {
  const ArchivioGuidato schermo = apri();
  schermo.scrivi(kReparto, QStringLiteral("81"));
  auto& tasto = schermo.controllo<QPushButton>(kTutti);
  QWidget riquadroAperto;
  // The box that comes up under the mouse takes the release.
  bottega.utente.onBox = [&](const Box&) { QTest::mouseRelease(&riquadroAperto, Qt::LeftButton); };
  QTest::mousePress(&tasto, Qt::LeftButton);
  bottega.utente.onBox = nullptr;
  EXPECT_TRUE(tasto.isDown());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !tasto.isDown(); }));
  attendi(bottega, {riquadro(kTestoReparto, Icon::Critical)});
}

}  // namespace
