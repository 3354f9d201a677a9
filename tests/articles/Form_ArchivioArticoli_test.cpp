#include "articles/Form_ArchivioArticoli.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "articles/guided_archive.h"
#include "controls/outcome_bar.h"
#include "controls/style.h"
#include "core/menu.h"
#include "sostegno/troubles.h"

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

const Box kGrave = box(
    QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!"),
    Icon::Critical);
const Box kSintassiRicerca = box(QStringLiteral("3075 - *"), Icon::Critical);
const Box kModificaFallita =
    box(QStringLiteral("Errore nella modifica articoli .\nErrore n° 3075\n*"), Icon::Critical);
const Box kVarPrezzoErrato =
    box(QStringLiteral("Attenzione var.prezzo deve essere S/s o N/n"), Icon::Information);
const QString kTestoReparto = QStringLiteral("Attenzione il reparto deve essere compreso tra 1 e 80 !!!!");

class ArchivioArticoli : public testing::Test {
 protected:
  ArchivioArticoli() {
    registraSchermateCore(bottega.screens);
    bottega.screens.registra<Form_ArchivioArticoli>();
  }

  /// A small archive: four articles, the third one marked by the import.
  void preparaArchivio() {
    bottega.openArchive();
    bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 4"));
    writeArticles(bottega, {{QStringLiteral("8003"), QStringLiteral("PANE"), 250, 2, true, false},
                            {QStringLiteral("8001"), QStringLiteral("PASTA"), 1250, 3, false, true},
                            {QStringLiteral("9001"), QStringLiteral("%SCONTO[*"), 1200, 2, false, false},
                            {QStringLiteral("7001"), QStringLiteral("LATTE"), 99, 80, true, true}});
    bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' where auto_id =3"));
  }
  GuidedArchive apri() {
    preparaArchivio();
    return GuidedArchive(bottega);
  }
  static QString detto(const GuidedArchive& schermo) {
    return schermo.control<OutcomeBar>("BarraEsito").text();
  }
  static OutcomeBar::Kind genere(const GuidedArchive& schermo) {
    return schermo.control<OutcomeBar>("BarraEsito").kind();
  }
  /// The one button that looks like the command to give, and that Enter presses.
  static QString primario(const GuidedArchive& schermo) {
    QStringList nomi;
    for (const QPushButton* tasto : schermo.window().findChildren<QPushButton*>())
      if (tasto->property("primary").toBool() && tasto->isDefault()) nomi << tasto->objectName();
    return nomi.join(u' ');
  }
  static void premi(const GuidedArchive& schermo, Qt::Key tasto) {
    QTest::keyClick(schermo.window().focusWidget(), tasto, Qt::ControlModifier);
  }
  QString campo(const QString& nome, int slot) {
    return bottega.value(QStringLiteral("SELECT %1 from TAB_ARTICOLI where auto_id =%2").arg(nome).arg(slot));
  }
  /// "12,50" with the locale's decimal sign.
  static QString prezzo(const char* testo) {
    return QString::fromLatin1(testo).replace(u',', QLocale().decimalPoint());
  }

  BackRoom bottega;
};

// Opening.

TEST_F(ArchivioArticoli, AllAperturaMostraTuttoLArchivioColFuocoSullEan) {
  bottega.openArchive();
  const GuidedArchive schermo(bottega);
  EXPECT_EQ(schermo.window().windowTitle(),
            QStringLiteral(" PLU/ARTICOLI - ") + bottega.folder.file(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(schermo.grid().Rows(), 5001);
  EXPECT_EQ(schermo.grid().TextMatrix(5000, 0), QStringLiteral("5000"));
  EXPECT_EQ(schermo.focus(), kEan);
  EXPECT_EQ(schermo.fields().join(QString()), QString());
  EXPECT_EQ(varGlobal().FlagVariazioni, 0);
}

TEST_F(ArchivioArticoli, DuranteIlRiempimentoCELaFinestraDiAttesaNonModaleELaClessidra) {
  preparaArchivio();
  int viste = 0;
  bottega.user.onPass = [&] {
    const QWidget* attesa = bottega.screens.trova(QStringLiteral("Form_ATTESA"));
    ASSERT_NE(attesa, nullptr);
    EXPECT_TRUE(attesa->isVisible());
    EXPECT_FALSE(attesa->isModal());
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    ++viste;
  };
  const GuidedArchive schermo(bottega);
  bottega.user.onPass = nullptr;
  EXPECT_EQ(viste, 4);
  EXPECT_EQ(bottega.screens.trova(QStringLiteral("Form_ATTESA")), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ArchivioArticoli, UnArchivioAssegnatoAccendeLeVariazioniEAllaRiaperturaSiRilegge) {
  preparaArchivio();
  bottega.execute(QStringLiteral("UPDATE TAB_VARIE SET NomeCassa ='CASSA 1'"));
  varGlobal().FlagAnomalia = kVero;
  {
    const GuidedArchive schermo(bottega);
    EXPECT_EQ(varGlobal().FlagVariazioni, 1);
    EXPECT_EQ(varGlobal().FlagAnomalia, kFalso);
    schermo.click(kEsci);
  }
  bottega.execute(QStringLiteral("UPDATE TAB_VARIE SET NomeCassa ='NON_ASSEGNATO'"));
  const GuidedArchive schermo(bottega);
  EXPECT_EQ(varGlobal().FlagVariazioni, 0);
}

TEST_F(ArchivioArticoli, SenzaLaTabellaDelleImpostazioniSiDiceESiLavora) {
  preparaArchivio();
  bottega.execute(QStringLiteral("DROP TABLE TAB_VARIE"));
  const GuidedArchive schermo(bottega);
  expectBoxes(bottega, {box(QStringLiteral("CheckTabVarie 3078 - *"), Icon::Critical)});
  EXPECT_EQ(varGlobal().FlagVariazioni, 0);
  EXPECT_EQ(schermo.grid().Rows(), 5);
}

TEST_F(ArchivioArticoli, SenzaLaTabellaDegliArticoliIlProgrammaTerminaSenzaLasciareNulla) {
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  EXPECT_THROW(bottega.screens.carica(kSchermo, bottega.contesto), ProgramEnded);
  expectBoxes(bottega, {kGrave});
  EXPECT_TRUE(bottega.user.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
  EXPECT_EQ(bottega.screens.trova(QStringLiteral("Form_ATTESA")), nullptr);
  EXPECT_EQ(bottega.screens.trova(kSchermo), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ArchivioArticoli, LeTestateLeLarghezzeEIColori) {
  const GuidedArchive schermo = apri();
  const FlexGrid& griglia = schermo.grid();
  EXPECT_EQ(schermo.row(0),
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
  const GuidedArchive schermo = apri();
  EXPECT_EQ(schermo.grid().horizontalHeader()->height(), 40);
  const QModelIndex cella = schermo.grid().model()->index(0, 0);
  EXPECT_EQ(cella.data(Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 255, 224));
}

TEST_F(ArchivioArticoli, LeCelleHannoIlLoroAllineamento) {
  const GuidedArchive schermo = apri();
  const std::array versi{Qt::AlignHCenter, Qt::AlignLeft,  Qt::AlignLeft,    Qt::AlignLeft,
                         Qt::AlignRight,   Qt::AlignRight, Qt::AlignHCenter, Qt::AlignHCenter};
  for (int colonna = 0; colonna < 8; ++colonna)
    EXPECT_EQ(schermo.grid().CellAlignment(1, colonna) & Qt::AlignHorizontal_Mask,
              versi.at(static_cast<std::size_t>(colonna)));
}

TEST_F(ArchivioArticoli, LeRigheMostranoPrezziELettere) {
  const GuidedArchive schermo = apri();
  EXPECT_EQ(schermo.row(1), prezzo("1|8003|A1|PANE|2,50|2|S|N"));
  EXPECT_EQ(schermo.row(4), prezzo("4|7001|A4|LATTE|0,99|80|S|S"));
}

TEST_F(ArchivioArticoli, UnaTabellaVuotaLasciaUnaRigaVuota) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
  const GuidedArchive schermo(bottega);
  EXPECT_EQ(schermo.grid().Rows(), 2);
  EXPECT_EQ(schermo.row(1), QStringLiteral("|||||||"));
  schermo.clickCell(1, 2);
  EXPECT_EQ(schermo.fields().join(QString()), QString());
}

TEST_F(ArchivioArticoli, IComandiHannoLeLoroScritte) {
  const GuidedArchive schermo = apri();
  EXPECT_EQ(schermo.text(kCerca), QStringLiteral("Cerca"));
  EXPECT_EQ(schermo.text(kSalva), QStringLiteral("Salva Modifiche"));
  EXPECT_EQ(schermo.text(kPulisci), QStringLiteral("Pulisci"));
  EXPECT_EQ(schermo.text(kTutti), QStringLiteral("Visualizza Tutti"));
  EXPECT_EQ(schermo.text(QStringLiteral("Cmd_Export")), QStringLiteral("Export Articoli"));
  EXPECT_EQ(schermo.text(kAiuto), QStringLiteral("     Help        Codice  EAN"));
  EXPECT_EQ(schermo.text(kEsci), QStringLiteral("Esci"));
  EXPECT_FALSE(schermo.enabled(QStringLiteral("vkTextBoxPLUid")));
}

TEST_F(ArchivioArticoli, IlTabulatoreSegueLOrdineSulloSchermo) {
  const GuidedArchive schermo = apri();
  QStringList giro;
  for (int i = 0; i < 15; ++i) {
    giro += schermo.focus();
    schermo.key(Qt::Key_Tab);
  }
  EXPECT_EQ(giro,
            (QStringList{kEan, kCodice, kDescrizione, kPrezzo, kReparto, kVarPrezzo, kPrezzoZero, kCerca,
                         kPulisci, kSalva, kGriglia, kTutti, QStringLiteral("Cmd_Export"), kAiuto, kEsci}));
  EXPECT_EQ(schermo.focus(), kEan);
}

TEST_F(ArchivioArticoli, StaInUnoSchermoDaMilleventiquattroSenzaTagliareScritte) {
  const GuidedArchive schermo = apri();
  schermo.window().resize(1016, 732);
  QCoreApplication::processEvents();
  EXPECT_LE(schermo.window().width(), 1016);
  EXPECT_LE(schermo.window().height(), 732);
  for (const QPushButton* tasto : schermo.window().findChildren<QPushButton*>())
    EXPECT_GE(tasto->width(), tasto->sizeHint().width()) << tasto->objectName().toStdString();
  EXPECT_GE(schermo.grid().columnWidth(0), schermo.grid().fontMetrics().horizontalAdvance(u"5000"_qs) + 6);
}

/// The screen in a font of the parameter's size, in the program's look.
class ArchivioArticoliNelCarattere : public ArchivioArticoli, public testing::WithParamInterface<int> {
 private:
  const InFont carattere_{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Punti, ArchivioArticoliNelCarattere, testing::Values(9, 11, 12));

TEST_P(ArchivioArticoliNelCarattere, NonPassaMilleventiquattroENonTagliaNeScritteNeImporti) {
  preparaArchivio();
  bottega.execute(
      QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo =9999999,Codice_EAN ='8001120000016',"
                     "Codice_Articolo ='0123456789012' where auto_id =1"));
  const GuidedArchive schermo(bottega);
  schermo.window().resize(1024, 732);
  for (int giro = 0; giro < 3; ++giro) QCoreApplication::processEvents();
  EXPECT_LE(schermo.window().minimumSizeHint().width(), 1024);
  EXPECT_EQ(schermo.window().size(), QSize(1024, 732));
  for (const QPushButton* tasto : schermo.window().findChildren<QPushButton*>()) {
    EXPECT_GE(tasto->width(), tasto->sizeHint().width()) << tasto->objectName().toStdString();
    EXPECT_TRUE(
        schermo.window().rect().contains(QRect(tasto->mapTo(&schermo.window(), QPoint()), tasto->size())))
        << tasto->objectName().toStdString();
  }
  const FlexGrid& griglia = schermo.grid();
  for (const int colonna : {0, 1, 2, 4, 5, 6, 7})
    EXPECT_GE(griglia.columnWidth(colonna),
              griglia.sizeHintForIndex(griglia.model()->index(0, colonna)).width())
        << colonna;
  EXPECT_EQ(griglia.horizontalScrollBar()->maximum(), 0);
  const int avanzo = griglia.viewport()->width() - griglia.horizontalHeader()->length();
  EXPECT_LE(avanzo, griglia.style()->pixelMetric(QStyle::PM_ScrollBarExtent)) << "the description takes it";
  schermo.clickCell(1, 1);
  for (const auto& nome : {kEan, kCodice, kPrezzo}) {
    const auto& campo = schermo.control<QLineEdit>(nome);
    EXPECT_GE(campo.width(), campo.fontMetrics().horizontalAdvance(campo.text()) + 18) << nome.toStdString();
  }
}

// Search.

TEST_F(ArchivioArticoli, UnaRicercaSenzaCampiElencaTuttoNellOrdineDellaTabellaSenzaLettereNeColori) {
  const GuidedArchive schermo = apri();
  schermo.click(kCerca);
  EXPECT_EQ(schermo.column(1), (QStringList{QStringLiteral("8003"), QStringLiteral("8001"),
                                            QStringLiteral("9001"), QStringLiteral("7001")}));
  EXPECT_EQ(schermo.row(1), prezzo("1|8003|A1|PANE|2,50|2||"));
  for (int colonna = 0; colonna < 8; ++colonna) {
    EXPECT_EQ(schermo.grid().CellBackColor(3, colonna), QColor());
    EXPECT_EQ(schermo.grid().CellBackColor(1, colonna), QColor());
  }
}

TEST_F(ArchivioArticoli, InvioInUnCampoCercaNellOrdineDellEan) {
  const GuidedArchive schermo = apri();
  schermo.type(kEan, QStringLiteral("80"));
  schermo.key(Qt::Key_Return);
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(schermo.column(1), (QStringList{QStringLiteral("8001"), QStringLiteral("8003")}));
  EXPECT_EQ(schermo.focus(), kEan);
}

TEST_F(ArchivioArticoli, OgniCampoHaLaSuaRicerca) {
  const GuidedArchive schermo = apri();
  const auto trova = [&](const QString& nome, const char16_t* tasti) {
    schermo.click(kPulisci);
    schermo.type(nome, QString::fromUtf16(tasti));
    schermo.key(Qt::Key_Enter);
    return schermo.column(0).join(u' ');
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
  const GuidedArchive schermo = apri();
  schermo.type(kDescrizione, QStringLiteral("pa"));
  schermo.type(kPrezzo, QStringLiteral("3"));
  schermo.click(kCerca);
  EXPECT_EQ(schermo.column(0), QStringList{QStringLiteral("2")});
}

TEST_F(ArchivioArticoli, UnaRicercaSenzaEsitoLasciaUnaRigaVuota) {
  const GuidedArchive schermo = apri();
  schermo.type(kEan, QStringLiteral("1"));
  schermo.click(kCerca);
  EXPECT_EQ(schermo.grid().Rows(), 2);
  EXPECT_EQ(schermo.row(1), QStringLiteral("|||||||"));
}

class ApostrofoNellaRicerca : public ArchivioArticoli, public testing::WithParamInterface<QString> {};

TEST_P(ApostrofoNellaRicerca, SiDiceELElencoRestaComEra) {
  const GuidedArchive schermo = apri();
  const QStringList prima = schermo.column(0);
  schermo.type(GetParam(), QStringLiteral("L'A"));
  schermo.key(Qt::Key_Return);
  expectBoxes(bottega, {kSintassiRicerca});
  EXPECT_FALSE(bottega.user.terminated());
  EXPECT_EQ(schermo.column(0), prima);
  EXPECT_TRUE(schermo.grid().Redraw());
}
INSTANTIATE_TEST_SUITE_P(Campi, ApostrofoNellaRicerca, testing::Values(kEan, kCodice, kDescrizione));

class SegniNellaRicerca : public ArchivioArticoli, public testing::WithParamInterface<QString> {};

TEST_P(SegniNellaRicerca, VirgolettePercentiEFiniRigaNonTrovanoNullaENonFannoDanno) {
  const GuidedArchive schermo = apri();
  for (const auto* segni : {u"\"", u"%%", u"\n", u"]", u"\\", u";--"}) {
    schermo.click(kPulisci);
    schermo.control<QLineEdit>(GetParam()).insert(QString::fromUtf16(segni));
    schermo.click(kCerca);
    EXPECT_EQ(schermo.row(1), QStringLiteral("|||||||")) << QString::fromUtf16(segni).toStdString();
  }
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI")), 4);
}
INSTANTIATE_TEST_SUITE_P(Campi, SegniNellaRicerca, testing::Values(kEan, kCodice, kDescrizione));

TEST_F(ArchivioArticoli, FraParentesiQuadreStaUnInsiemeDiCaratteri) {
  const GuidedArchive schermo = apri();
  schermo.type(kDescrizione, QStringLiteral("[pl]a[st]"));
  schermo.click(kCerca);
  EXPECT_EQ(schermo.column(0).join(u' '), QStringLiteral("4 2"));
}

TEST_F(ArchivioArticoli, UnaParentesiQuadraApertaSiDiceELElencoRestaComEra) {
  const GuidedArchive schermo = apri();
  const QStringList prima = schermo.column(0);
  schermo.type(kDescrizione, QStringLiteral("P["));
  schermo.click(kCerca);
  expectBoxes(bottega, {kSintassiRicerca});
  EXPECT_FALSE(bottega.user.terminated());
  EXPECT_EQ(schermo.column(0), prima);
}

TEST_F(ArchivioArticoli, LAsteriscoTrovaTutto) {
  const GuidedArchive schermo = apri();
  schermo.type(kEan, QStringLiteral("*"));
  schermo.click(kCerca);
  EXPECT_EQ(schermo.column(0).join(u' '), QStringLiteral("4 2 1 3"));
}

TEST_F(ArchivioArticoli, UnArchivioGuastatoSottoLaRicercaTerminaIlProgramma) {
  const GuidedArchive schermo = apri();
  bottega.execute(QStringLiteral("DROP TABLE TAB_ARTICOLI"));
  schermo.click(kCerca);
  expectBoxes(bottega, {kGrave});
  EXPECT_TRUE(bottega.user.terminated());
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
}

// The foot.

TEST_F(ArchivioArticoli, IlPiedeDiceQuantiArticoliCiSono) {
  const GuidedArchive schermo = apri();
  EXPECT_EQ(detto(schermo), QStringLiteral("4 articoli"));
  schermo.type(kEan, QStringLiteral("80"));
  schermo.click(kCerca);
  EXPECT_EQ(detto(schermo), QStringLiteral("2 articoli"));
  schermo.type(kEan, QStringLiteral("9"));
  schermo.click(kCerca);
  EXPECT_EQ(detto(schermo), QStringLiteral("1 articolo"));
  schermo.click(kTutti);
  EXPECT_EQ(detto(schermo), QStringLiteral("4 articoli"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Plain);
}

TEST_F(ArchivioArticoli, UnArchivioInteroHaCinquemilaArticoli) {
  bottega.openArchive();
  const GuidedArchive schermo(bottega);
  EXPECT_EQ(detto(schermo), QStringLiteral("5.000 articoli"));
}

TEST_F(ArchivioArticoli, UnaRicercaSenzaEsitoLoDiceInMezzoAllElencoEAlPiede) {
  const GuidedArchive schermo = apri();
  schermo.type(kEan, QStringLiteral("1"));
  schermo.click(kCerca);
  EXPECT_EQ(schermo.grid().Notice(), QStringLiteral("Nessun articolo trovato"));
  EXPECT_EQ(detto(schermo), QStringLiteral("Nessun articolo trovato"));
  schermo.click(kTutti);
  EXPECT_EQ(schermo.grid().Notice(), QString());
}

TEST_F(ArchivioArticoli, UnArchivioVuotoLoDice) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
  const GuidedArchive schermo(bottega);
  EXPECT_EQ(schermo.grid().Notice(), QStringLiteral("Nessun articolo in archivio"));
  EXPECT_EQ(detto(schermo), QStringLiteral("Nessun articolo in archivio"));
}

TEST_F(ArchivioArticoli, UnaRicercaCheFallisceSiLeggeAncheAlPiede) {
  const GuidedArchive schermo = apri();
  schermo.type(kDescrizione, QStringLiteral("L'A"));
  schermo.click(kCerca);
  expectBoxes(bottega, {kSintassiRicerca});
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Failed);
  EXPECT_TRUE(detto(schermo).startsWith(QStringLiteral("3075 - "))) << detto(schermo).toStdString();
}

TEST_F(ArchivioArticoli, UnSalvataggioDiceCheCosaEStatoSalvato) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(4, 2);
  schermo.type(kDescrizione, QStringLiteral("latte uht intero"));
  schermo.type(kPrezzo, QStringLiteral("2,15"));
  schermo.click(kSalva);
  EXPECT_EQ(detto(schermo), QStringLiteral("Salvato: PLU 4 LATTE UHT INTERO, €\u00A02,15"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Done);
  schermo.key(Qt::Key_Return);
  EXPECT_EQ(detto(schermo), QStringLiteral("Salvato: PLU 4 LATTE UHT INTERO, €\u00A02,15"))
      << "picking a row says nothing";
  schermo.click(kCerca);
  EXPECT_NE(genere(schermo), OutcomeBar::Kind::Done);
}

TEST_F(ArchivioArticoli, UnSalvataggioRifiutatoDiceICampiEVaNelPrimo) {
  const GuidedArchive schermo = apri();
  schermo.click(kSalva);
  EXPECT_EQ(bottega.user.takeBoxes().size(), 4U);
  EXPECT_EQ(detto(schermo),
            QStringLiteral("Non salvato: correggere DESCRIZIONE, PREZZO, REPARTO, VAR.PREZZO"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Warning);
  EXPECT_EQ(schermo.focus(), kDescrizione);
  schermo.clickCell(1, 1);
  schermo.type(kVarPrezzo, QString());
  schermo.click(kSalva);
  expectBoxes(bottega, {kVarPrezzoErrato});
  EXPECT_EQ(schermo.focus(), kVarPrezzo);
  EXPECT_EQ(detto(schermo), QStringLiteral("Non salvato: correggere VAR.PREZZO"));
}

TEST_F(ArchivioArticoli, UnSalvataggioFallitoSiLeggeAncheAlPiede) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kDescrizione, QStringLiteral("L'ACQUA"));
  schermo.click(kSalva);
  expectBoxes(bottega, {kModificaFallita});
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Failed);
  EXPECT_TRUE(detto(schermo).startsWith(QStringLiteral("Errore nella modifica articoli")));
}

TEST_F(ArchivioArticoli, LExportDiceLeRigheEIlFileSiApreDaLi) {
  const GuidedArchive schermo = apri();
  const QString file = bottega.folder.file(QStringLiteral("articoli.csv"));
  bottega.user.chooses(file).chooses(std::nullopt);
  schermo.click(QStringLiteral("Cmd_Export"));
  EXPECT_EQ(bottega.user.takeBoxes().size(), 1U);
  EXPECT_EQ(detto(schermo), QStringLiteral("Esportate 4 righe in articoli.csv"));
  schermo.click(QStringLiteral("AzioneEsito"));
  EXPECT_EQ(bottega.user.programs(), QStringList{file});
  schermo.click(QStringLiteral("Cmd_Export"));
  EXPECT_EQ(detto(schermo), QStringLiteral("Esportazione annullata: nessun file scritto"));
}

// What is primary, and the keys.

TEST_F(ArchivioArticoli, IlComandoPrimarioSegueIlLavoro) {
  const GuidedArchive schermo = apri();
  EXPECT_EQ(primario(schermo), kCerca);
  schermo.clickCell(1, 1);
  EXPECT_EQ(primario(schermo), kCerca) << "nothing was changed";
  schermo.type(kDescrizione, QStringLiteral("PANE BIANCO"));
  EXPECT_EQ(primario(schermo), kSalva);
  EXPECT_EQ(detto(schermo), QStringLiteral("Modifiche non salvate: PLU 1 PANE"));
  schermo.type(kDescrizione, QStringLiteral("PANE"));
  EXPECT_EQ(primario(schermo), kCerca) << "as it was";
  EXPECT_EQ(detto(schermo), QStringLiteral("4 articoli"));
  schermo.type(kReparto, QStringLiteral("9"));
  schermo.click(kPulisci);
  EXPECT_EQ(primario(schermo), kCerca);
  schermo.type(kReparto, QStringLiteral("9"));
  EXPECT_EQ(primario(schermo), kCerca) << "no row is picked";
}

TEST_F(ArchivioArticoli, InvioDopoUnaModificaSalvaEPoiCercaDiNuovo) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kPrezzo, QStringLiteral("3"));
  schermo.key(Qt::Key_Return);
  EXPECT_EQ(campo(QStringLiteral("Prezzo"), 1), QStringLiteral("300"));
  EXPECT_EQ(detto(schermo), QStringLiteral("Salvato: PLU 1 PANE, €\u00A03,00"));
  EXPECT_EQ(primario(schermo), kCerca);
  schermo.control(kEan).setFocus();
  schermo.key(Qt::Key_Return);
  EXPECT_EQ(schermo.column(1), QStringList{QStringLiteral("8003")});
}

TEST_F(ArchivioArticoli, InvioNonSalvaUnPrezzoCheLasciandoIlCampoSarebbeRifiutato) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kPrezzo, QStringLiteral("100000"));
  schermo.key(Qt::Key_Return);
  expectBoxes(bottega, {box(QStringLiteral("Attenzione il valore immesso > 99999.99!"), Icon::Critical)});
  EXPECT_EQ(campo(QStringLiteral("Prezzo"), 1), QStringLiteral("250"));
  EXPECT_EQ(schermo.text(kPrezzo), QStringLiteral("0"));
  EXPECT_EQ(schermo.focus(), kPrezzo);
  EXPECT_EQ(detto(schermo), QStringLiteral("Attenzione il valore immesso > 99999.99!"));
}

TEST_F(ArchivioArticoli, CtrlSSalvaDaUnCampoEDallaGriglia) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kDescrizione, QStringLiteral("PANE NERO"));
  premi(schermo, Qt::Key_S);
  EXPECT_EQ(campo(QStringLiteral("Descrizione"), 1), QStringLiteral("PANE NERO"));
  EXPECT_EQ(schermo.focus(), kGriglia);
  premi(schermo, Qt::Key_S);
  EXPECT_EQ(detto(schermo), QStringLiteral("Salvato: PLU 1 PANE NERO, €\u00A02,50"));
  schermo.type(kReparto, QStringLiteral("81"));
  premi(schermo, Qt::Key_S);
  expectBoxes(bottega, {box(kTestoReparto, Icon::Critical)});
  EXPECT_EQ(campo(QStringLiteral("Reparto"), 1), QStringLiteral("2"));
}

TEST_F(ArchivioArticoli, CtrlFVaAllEanF5RileggeECtrlEEsporta) {
  const GuidedArchive schermo = apri();
  schermo.type(kEan, QStringLiteral("9"));
  schermo.key(Qt::Key_Return);
  EXPECT_EQ(schermo.grid().Rows(), 2);
  schermo.control(kPrezzo).setFocus();
  schermo.key(Qt::Key_F5);
  EXPECT_EQ(schermo.grid().Rows(), 5);
  premi(schermo, Qt::Key_F);
  EXPECT_EQ(schermo.focus(), kEan);
  EXPECT_EQ(schermo.control<QLineEdit>(kEan).selectedText(), QStringLiteral("9"));
  bottega.user.chooses(std::nullopt);
  premi(schermo, Qt::Key_E);
  EXPECT_EQ(bottega.user.requests().size(), 1U);
}

TEST_F(ArchivioArticoli, ITastiStannoNeiSuggerimenti) {
  const GuidedArchive schermo = apri();
  const auto finisce = [&](const QString& nome, const char* tasto) {
    return schermo.control(nome).toolTip().endsWith(QLatin1String(tasto));
  };
  EXPECT_TRUE(finisce(kSalva, "(Ctrl+S)"));
  EXPECT_TRUE(finisce(kTutti, "(F5)"));
  EXPECT_TRUE(finisce(QStringLiteral("Cmd_Export"), "(Ctrl+E)"));
  EXPECT_TRUE(finisce(kEan, "(Ctrl+F)"));
  EXPECT_TRUE(finisce(kEsci, "(Esc)"));
  EXPECT_TRUE(finisce(kCerca, "(Invio)"));
}

TEST_F(ArchivioArticoli, InvioSuEsciNonEsce) {
  const GuidedArchive schermo = apri();
  schermo.control(kEsci).setFocus();
  schermo.key(Qt::Key_Return);
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(schermo.grid().TextMatrix(1, 6), QStringLiteral("S")) << "nor is anything searched";
  schermo.key(Qt::Key_Space);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(ArchivioArticoli, UnComandoSpentoDicePerche) {
  const GuidedArchive schermo = apri();
  auto& archivio = static_cast<Form_ArchivioArticoli&>(schermo.window());
  const QString usuale = schermo.control(kTutti).toolTip();
  archivio.BloccaComandi(true);
  EXPECT_EQ(schermo.control(kTutti).toolTip(), QStringLiteral("Attendere: si sta cancellando un articolo"));
  archivio.BloccaComandi(false);
  EXPECT_EQ(schermo.control(kTutti).toolTip(), usuale);
}

TEST_F(ArchivioArticoli, OgniIconaCheLoSchermoNominaCE) {
  style::iconFolder(QStringLiteral(GESTIONALE_APP "/icons"));
  for (const char* nome : {"search", "save", "x", "list", "file-output", "circle-help", "arrow-left"})
    EXPECT_TRUE(style::iconExists(QLatin1String(nome))) << nome;
  const GuidedArchive schermo = apri();
  for (const auto& nome : {kCerca, kSalva, kPulisci, kTutti, QStringLiteral("Cmd_Export"), kAiuto, kEsci}) {
    const QImage dipinta = schermo.control<QPushButton>(nome).icon().pixmap(16).toImage();
    bool inchiostro = false;
    for (int y = 0; y < dipinta.height(); ++y)
      for (int x = 0; x < dipinta.width(); ++x)
        inchiostro = inchiostro || dipinta.pixelColor(x, y).alpha() > 0;
    EXPECT_TRUE(inchiostro) << nome.toStdString();
  }
  style::iconFolder({});
}

// Picking a row.

TEST_F(ArchivioArticoli, LaRigaNeiCampiRestaSegnataFinoAPulisci) {
  const GuidedArchive schermo = apri();
  EXPECT_EQ(schermo.grid().RowInFields(), 0);
  schermo.clickCell(2, 3);
  EXPECT_EQ(schermo.grid().RowInFields(), 2);
  schermo.key(Qt::Key_Down);
  EXPECT_EQ(schermo.grid().Row(), 3);
  EXPECT_EQ(schermo.grid().RowInFields(), 2) << "the fields still hold it";
  schermo.click(kTutti);
  EXPECT_EQ(schermo.grid().RowInFields(), 2);
  schermo.click(kPulisci);
  EXPECT_EQ(schermo.grid().RowInFields(), 0);
}

TEST_F(ArchivioArticoli, LaRigaNeiCampiSiSegueNellElencoTrovatoEDopoIlSalvataggio) {
  const GuidedArchive schermo = apri();
  schermo.type(kDescrizione, QStringLiteral("pa"));
  schermo.click(kCerca);
  EXPECT_EQ(schermo.column(0).join(u' '), QStringLiteral("2 1"));
  schermo.clickCell(2, 1);
  EXPECT_EQ(schermo.grid().RowInFields(), 2);
  schermo.type(kVarPrezzo, QStringLiteral("S"));
  schermo.type(kPrezzoZero, QStringLiteral("N"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.grid().Rows(), 5);
  EXPECT_EQ(schermo.grid().Row(), 2) << "the number of the row, as it was";
  EXPECT_EQ(schermo.grid().RowInFields(), 1) << "the article, where it now stands";
  schermo.type(kEan, QStringLiteral("7"));
  schermo.click(kPulisci);
  schermo.type(kEan, QStringLiteral("7"));
  schermo.click(kCerca);
  EXPECT_EQ(schermo.grid().RowInFields(), 0);
}

TEST_F(ArchivioArticoli, UnAltraRigaSceltaSopraModificheNonSalvateLoDice) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kPrezzo, QStringLiteral("9"));
  schermo.clickCell(2, 1);
  EXPECT_EQ(schermo.text(kEan), QStringLiteral("8001"));
  EXPECT_EQ(detto(schermo), QStringLiteral("Modifiche non salvate e sostituite: PLU 1 PANE"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Warning);
  EXPECT_EQ(primario(schermo), kCerca);
}

TEST_F(ArchivioArticoli, IlTastoDestroCopiaLEanSenzaToccareICampi) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  const FlexGrid& griglia = schermo.grid();
  const QPoint dove = griglia.visualRect(griglia.model()->index(3, 3)).center();
  QTest::mouseClick(griglia.viewport(), Qt::RightButton, {}, dove);
  QContextMenuEvent chiede(QContextMenuEvent::Mouse, dove, griglia.viewport()->mapToGlobal(dove));
  QApplication::sendEvent(griglia.viewport(), &chiede);
  auto* menu = griglia.findChild<QMenu*>(QStringLiteral("MenuElenco"));
  ASSERT_NE(menu, nullptr);
  menu->findChild<QAction*>(QStringLiteral("Copia EAN"))->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("7001"));
  menu->findChild<QAction*>(QStringLiteral("Copia riga"))->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), prezzo("4|7001|A4|LATTE|0,99|80|S|S").replace(u'|', u'\t'));
  menu->close();
  EXPECT_EQ(schermo.text(kEan), QStringLiteral("8003"));
  EXPECT_EQ(griglia.Row(), 1);
}

TEST_F(ArchivioArticoli, UnaLarghezzaDataAManoRestaFinCheLoSchermoVive) {
  const GuidedArchive schermo = apri();
  schermo.grid().horizontalHeader()->resizeSection(1, 222);
  schermo.click(kTutti);
  schermo.click(kCerca);
  schermo.clickCell(1, 1);
  schermo.type(kVarPrezzo, QStringLiteral("N"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.grid().columnWidth(1), 222);
}

TEST_F(ArchivioArticoli, UnClicSullaGrigliaCopiaLaRigaNeiCampiELaSceglie) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(2, 3);
  EXPECT_EQ(schermo.fields().join(u'|'), prezzo("2|8001|A2|PASTA|12,50|3|N|S"));
  EXPECT_EQ(schermo.grid().Row(), 2);
  const QModelIndexList scelte = schermo.grid().selectionModel()->selectedIndexes();
  EXPECT_EQ(scelte.size(), 8);
  for (const QModelIndex& cella : scelte) EXPECT_EQ(cella.row(), 1);
}

TEST_F(ArchivioArticoli, InvioSullaGrigliaCopiaLaRigaSenzaCercare) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.key(Qt::Key_Down);
  EXPECT_EQ(schermo.text(kEan), QStringLiteral("8003"));
  schermo.key(Qt::Key_Return);
  EXPECT_EQ(schermo.text(kEan), QStringLiteral("8001"));
  EXPECT_EQ(schermo.grid().Rows(), 5);
  EXPECT_EQ(schermo.grid().TextMatrix(1, 6), QStringLiteral("S"));
}

TEST_F(ArchivioArticoli, UnValorePiuLungoDelCampoSiMostraInteroENonSiSalvaTagliato) {
  preparaArchivio();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Reparto =100 where auto_id =1"));
  const GuidedArchive schermo(bottega);
  schermo.clickCell(1, 1);
  EXPECT_EQ(schermo.text(kReparto), QStringLiteral("100"));
  schermo.click(kSalva);
  expectBoxes(bottega, {box(kTestoReparto, Icon::Information)});
  schermo.click(kPulisci);
  expectBoxes(bottega, {box(kTestoReparto, Icon::Critical)});
  schermo.type(kReparto, QStringLiteral("100"));
  EXPECT_EQ(schermo.text(kReparto), QStringLiteral("10"));
}

// Save.

TEST_F(ArchivioArticoli, UnaCorrezioneSiSalvaRilegendoETornandoAllaRiga) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(2, 2);
  schermo.type(kDescrizione, QStringLiteral("pasta all'uovo").remove(u'\''));
  schermo.type(kPrezzo, QStringLiteral("3,5"));
  schermo.type(kVarPrezzo, QStringLiteral("s"));
  schermo.type(kPrezzoZero, QStringLiteral("n"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.row(2), prezzo("2|8001|A2|PASTA ALLUOVO|3,50|3|S|N"));
  EXPECT_EQ(campo(QStringLiteral("Prezzo"), 2), QStringLiteral("350"));
  EXPECT_EQ(schermo.grid().Row(), 2);
  EXPECT_EQ(schermo.focus(), kGriglia);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ArchivioArticoli, UnaRigaSegnataPerdeIlColoreDopoUnSalvataggio) {
  const GuidedArchive schermo = apri();
  EXPECT_EQ(schermo.grid().CellBackColor(3, 1), kArancio);
  schermo.clickCell(3, 1);
  schermo.click(kSalva);
  for (int colonna = 1; colonna <= 5; ++colonna)
    EXPECT_EQ(schermo.grid().CellBackColor(3, colonna), QColor(Qt::white));
  EXPECT_EQ(campo(QStringLiteral("Filler"), 3), QStringLiteral(" "));
}

TEST_F(ArchivioArticoli, UnaRigaTrovataSiSalvaSoloDopoAverScrittoLeLettere) {
  const GuidedArchive schermo = apri();
  schermo.type(kEan, QStringLiteral("8001"));
  schermo.click(kCerca);
  schermo.clickCell(1, 1);
  EXPECT_EQ(schermo.text(kVarPrezzo), QString());
  schermo.click(kSalva);
  expectBoxes(bottega, {kVarPrezzoErrato});
  EXPECT_EQ(schermo.grid().Rows(), 2);
  schermo.type(kVarPrezzo, QStringLiteral("S"));
  schermo.type(kPrezzoZero, QStringLiteral("S"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.row(2), prezzo("2|8001|A2|PASTA|12,50|3|S|S"));
}

TEST_F(ArchivioArticoli, SenzaRigaSceltaECampiVuotiQuattroMessaggiInFila) {
  const GuidedArchive schermo = apri();
  schermo.click(kSalva);
  expectBoxes(bottega,
              {box(QStringLiteral("Attenzione il campo DESCRIZIONE non e' valorizzato"), Icon::Information),
               box(QStringLiteral("Attenzione il campo PREZZO non e' valorizzato"), Icon::Information),
               box(kTestoReparto, Icon::Information), kVarPrezzoErrato});
}

TEST_F(ArchivioArticoli, ConIlRepartoZeroIlSalvataggioDiceIlReparto) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kReparto, QStringLiteral("0"));
  schermo.click(kSalva);
  expectBoxes(bottega, {box(kTestoReparto, Icon::Information)});
  EXPECT_EQ(campo(QStringLiteral("Reparto"), 1), QStringLiteral("2"));
}

TEST_F(ArchivioArticoli, SenzaUnaRigaSceltaLIstruzioneFallisce) {
  const GuidedArchive schermo = apri();
  schermo.type(kDescrizione, QStringLiteral("X"));
  schermo.type(kPrezzo, QStringLiteral("1"));
  schermo.type(kReparto, QStringLiteral("1"));
  schermo.type(kVarPrezzo, QStringLiteral("N"));
  schermo.click(kSalva);
  expectBoxes(bottega, {kModificaFallita});
  EXPECT_EQ(schermo.focus(), kGriglia);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Descrizione ='X'")), 0);
}

TEST_F(ArchivioArticoli, UnApostrofoNellaDescrizioneAnnullaELaGrigliaResta) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kDescrizione, QStringLiteral("L'ACQUA"));
  schermo.click(kSalva);
  expectBoxes(bottega, {kModificaFallita});
  EXPECT_EQ(campo(QStringLiteral("Descrizione"), 1), QStringLiteral("PANE"));
  EXPECT_EQ(schermo.row(1), prezzo("1|8003|A1|PANE|2,50|2|S|N"));
  EXPECT_EQ(schermo.grid().Row(), 1);
  EXPECT_EQ(schermo.text(kDescrizione), QStringLiteral("L'ACQUA"));
}

TEST_F(ArchivioArticoli, UnPrezzoFuoriMisuraSalvatoSenzaLasciareIlCampoSiDiceSenzaScrivere) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kPrezzo, QStringLiteral("99999999"));
  // Pressed by an aid for the disabled, say: the focus stays in the field, which is not checked.
  schermo.control<QPushButton>(kSalva).click();
  expectBoxes(bottega, {{QStringLiteral("Error 6 (*"), Icon::None, {}, Buttons::Ok}});
  EXPECT_EQ(campo(QStringLiteral("Prezzo"), 1), QStringLiteral("250"));
}

// The other commands.

TEST_F(ArchivioArticoli, PulisciVuotaICampiETornaSullEan) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.click(kPulisci);
  EXPECT_EQ(schermo.fields().join(QString()), QString());
  EXPECT_EQ(schermo.focus(), kEan);
  EXPECT_EQ(schermo.grid().Rows(), 5);
}

TEST_F(ArchivioArticoli, PulisciSopraModificheNonSalvateLoDice) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kPrezzo, QStringLiteral("9"));
  schermo.click(kPulisci);
  EXPECT_EQ(schermo.fields().join(QString()), QString());
  EXPECT_EQ(detto(schermo), QStringLiteral("Modifiche non salvate e cancellate: PLU 1 PANE"));
  EXPECT_EQ(genere(schermo), OutcomeBar::Kind::Warning);
  EXPECT_EQ(campo(QStringLiteral("Prezzo"), 1), QStringLiteral("250"));
  schermo.click(kPulisci);
  EXPECT_EQ(detto(schermo), QStringLiteral("4 articoli"));
}

TEST_F(ArchivioArticoli, VisualizzaTuttiRileggeLArchivioConLettereEColori) {
  const GuidedArchive schermo = apri();
  schermo.type(kEan, QStringLiteral("9"));
  schermo.click(kCerca);
  EXPECT_EQ(schermo.grid().Rows(), 2);
  schermo.click(kTutti);
  EXPECT_EQ(schermo.grid().Rows(), 5);
  EXPECT_EQ(schermo.row(1), prezzo("1|8003|A1|PANE|2,50|2|S|N"));
  EXPECT_EQ(schermo.grid().CellBackColor(3, 2), kArancio);
  EXPECT_EQ(schermo.text(kEan), QStringLiteral("9"));
}

TEST_F(ArchivioArticoli, BloccaComandiSpegneSeiComandiELasciaEsci) {
  const GuidedArchive schermo = apri();
  auto& archivio = static_cast<Form_ArchivioArticoli&>(schermo.window());
  const QStringList comandi{QStringLiteral("Cmd_Export"), kSalva, kTutti, kPulisci, kAiuto, kCerca};
  archivio.BloccaComandi(true);
  for (const QString& nome : comandi) EXPECT_FALSE(schermo.enabled(nome)) << nome.toStdString();
  EXPECT_TRUE(schermo.enabled(kEsci));
  archivio.BloccaComandi(false);
  for (const QString& nome : comandi) EXPECT_TRUE(schermo.enabled(nome)) << nome.toStdString();
}

TEST_F(ArchivioArticoli, SenzaIlFileDiAiutoSiDiceENonSiApreNulla) {
  bottega.contesto.cartella = bottega.folder.path();
  bottega.screens.registra(QStringLiteral("Form_Help_CodiceEAN"), [](Contesto&) -> QWidget* {
    ADD_FAILURE() << "opened";
    return new QDialog;
  });
  bottega.openWith({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position,Codice_EAN,Codice_Articolo,"
                                   "Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero)"),
                    QStringLiteral("CREATE TABLE TAB_VARIE (NomeCassa TEXT)")});
  const GuidedArchive schermo(bottega);
  schermo.click(kAiuto);
  expectBoxes(bottega, {box(QStringLiteral("Attenzione il file di Help per Codice EAN non presente"),
                            Icon::Critical)});
}

TEST_F(ArchivioArticoli, ConIlFileDiAiutoSiApreLaSuaSchermataModale) {
  bottega.openArchive();
  bottega.contesto.cartella = bottega.folder.path();
  bottega.folder.write(QStringLiteral("Help_CodiceEAN.rtf"), "{\\rtf1 EAN}");
  int aperture = 0;
  bottega.screens.registra(QStringLiteral("Form_Help_CodiceEAN"), [&](Contesto&) -> QWidget* {
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
  const GuidedArchive schermo(bottega);
  schermo.click(kAiuto);
  EXPECT_EQ(aperture, 1);
  EXPECT_TRUE(schermo.alive());
}

TEST_F(ArchivioArticoli, EsciChiudeERiportaAllaGestione) {
  bottega.screens.registra(QStringLiteral("Form_GestioneMMC"), [](Contesto&) { return new QWidget; });
  const GuidedArchive schermo = apri();
  schermo.click(kEsci);
  EXPECT_FALSE(schermo.alive());
  ASSERT_NE(bottega.screens.trova(QStringLiteral("Form_GestioneMMC")), nullptr);
  EXPECT_TRUE(bottega.screens.trova(QStringLiteral("Form_GestioneMMC"))->isVisible());
  EXPECT_TRUE(varGlobal().DB_Articoli.isOpen());
}

TEST_F(ArchivioArticoli, EscChiudeSenzaControllareIlCampoCheSiStavaScrivendo) {
  const GuidedArchive schermo = apri();
  schermo.type(kReparto, QStringLiteral("99"));
  schermo.key(Qt::Key_Escape);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(ArchivioArticoli, ClicEscEChiusuraImbucatiAOgniPassaggioNonFannoNulla) {
  const GuidedArchive schermo = apri();
  schermo.clickCell(1, 1);
  schermo.type(kDescrizione, QStringLiteral("IMPAZIENZA"));
  bottega.user.onPass = [&] {
    for (const QString& nome : {kSalva, kCerca, kPulisci, kEsci})
      for (const QEvent::Type tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
        QCoreApplication::postEvent(
            &schermo.control(nome),
            new QMouseEvent(tipo, {5, 5}, schermo.control(nome).mapToGlobal(QPointF(5, 5)), Qt::LeftButton,
                            tipo == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                            Qt::NoModifier));
    QCoreApplication::postEvent(&schermo.window(),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    QCoreApplication::postEvent(&schermo.window(), new QCloseEvent);
  };
  schermo.click(kTutti);
  bottega.user.onPass = nullptr;
  QCoreApplication::processEvents();
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(schermo.text(kDescrizione), QStringLiteral("IMPAZIENZA"));
  EXPECT_EQ(campo(QStringLiteral("Descrizione"), 1), QStringLiteral("PANE"));
  EXPECT_EQ(schermo.grid().Rows(), 5);
}

// Keys and leaving.

TEST_F(ArchivioArticoli, UnTastoRifiutatoDiceIlPercheSottoIlSuoCampo) {
  const GuidedArchive schermo = apri();
  const auto avviso = [&](const QString& nome) {
    const auto* etichetta = schermo.window().findChild<QLabel*>(QStringLiteral("Avviso_") + nome);
    return etichetta && etichetta->isVisible() ? etichetta->text() : QString();
  };
  schermo.type(kReparto, QStringLiteral("1a"));
  EXPECT_EQ(avviso(kReparto), QStringLiteral("Solo cifre"));
  schermo.type(kVarPrezzo, QStringLiteral("x"));
  EXPECT_EQ(avviso(kVarPrezzo), QStringLiteral("Solo S o N"));
  EXPECT_EQ(avviso(kReparto), QString()) << "it was left";
  schermo.type(kPrezzo, QStringLiteral("12.5"));
  EXPECT_EQ(avviso(kPrezzo), QString()) << "the 5 was taken";
  schermo.type(kPrezzo, QStringLiteral("12,505"));
  EXPECT_EQ(avviso(kPrezzo),
            QStringLiteral("I due decimali ci sono già: cancellare con Backspace, poi scrivere"));
  schermo.type(kEan, QStringLiteral("12345678901234"));
  EXPECT_EQ(avviso(kEan), QStringLiteral("Al massimo 13 caratteri"));
  EXPECT_EQ(avviso(kPrezzo), QString());
}

TEST_F(ArchivioArticoli, IlTastoDecimaleDelTastierinoScriveLaVirgolaDelPrezzo) {
  const GuidedArchive schermo = apri();
  auto& casella = schermo.control<QLineEdit>(kPrezzo);
  schermo.type(kPrezzo, QStringLiteral("2"));
  QTest::keyClick(&casella, Qt::Key_Period, Qt::KeypadModifier);
  QTest::keyClicks(&casella, QStringLiteral("15"));
  EXPECT_EQ(schermo.text(kPrezzo), QStringLiteral("2,15"));
}

TEST_F(ArchivioArticoli, ITastiSbagliatiNonEntranoNeiCampi) {
  const GuidedArchive schermo = apri();
  schermo.type(kPrezzo, QStringLiteral("1234,567"));
  EXPECT_EQ(schermo.text(kPrezzo), QStringLiteral("1234,56"));
  schermo.type(kPrezzo, QStringLiteral("1.5x-"));
  EXPECT_EQ(schermo.text(kPrezzo), QStringLiteral("15"));
  schermo.type(kReparto, QStringLiteral("a-7,"));
  EXPECT_EQ(schermo.text(kReparto), QStringLiteral("7"));
  schermo.type(kVarPrezzo, QStringLiteral("xs"));
  EXPECT_EQ(schermo.text(kVarPrezzo), QStringLiteral("s"));
  schermo.type(kPrezzoZero, QStringLiteral("1N"));
  EXPECT_EQ(schermo.text(kPrezzoZero), QStringLiteral("N"));
}

TEST_F(ArchivioArticoli, NeiTestiEntraTuttoFinoAllaLunghezzaDelCampo) {
  const GuidedArchive schermo = apri();
  const QString segni = QStringLiteral("'\"%*[]#?;-- 12345678901234567890");
  schermo.type(kEan, segni);
  EXPECT_EQ(schermo.text(kEan), segni.left(13));
  schermo.type(kCodice, segni);
  EXPECT_EQ(schermo.text(kCodice), segni.left(13));
  schermo.type(kDescrizione, segni);
  EXPECT_EQ(schermo.text(kDescrizione), segni.left(30));
  schermo.type(kPrezzo, QStringLiteral("123456789"));
  EXPECT_EQ(schermo.text(kPrezzo), QStringLiteral("12345678"));
  schermo.type(kPrezzo, QStringLiteral("1"));
  schermo.type(kVarPrezzo, QStringLiteral("SN"));
  EXPECT_EQ(schermo.text(kVarPrezzo), QStringLiteral("S"));
  schermo.type(kPrezzoZero, QStringLiteral("ns"));
  EXPECT_EQ(schermo.text(kPrezzoZero), QStringLiteral("n"));
}

TEST_F(ArchivioArticoli, ConDueDecimaliSoloIlTastoIndietroCambiaIlPrezzo) {
  const GuidedArchive schermo = apri();
  auto& casella = schermo.control<QLineEdit>(kPrezzo);
  schermo.type(kPrezzo, QStringLiteral("12,50"));
  casella.selectAll();
  QTest::keyClick(&casella, Qt::Key_X, Qt::ControlModifier);
  QTest::keyClick(&casella, Qt::Key_9);
  EXPECT_EQ(schermo.text(kPrezzo), QStringLiteral("12,50"));
  QTest::keyClick(&casella, Qt::Key_Backspace);
  EXPECT_EQ(schermo.text(kPrezzo), QString());
}

TEST_F(ArchivioArticoli, AnnullareLaScritturaNonCambiaIlPrezzo) {
  const GuidedArchive schermo = apri();
  auto& casella = schermo.control<QLineEdit>(kPrezzo);
  schermo.clickCell(1, 1);
  schermo.type(kPrezzo, QStringLiteral("7"));
  QTest::keyClick(&casella, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(schermo.text(kPrezzo), QStringLiteral("7"));
}

TEST_F(ArchivioArticoli, TagliareUnRepartoSiPuo) {
  const GuidedArchive schermo = apri();
  auto& casella = schermo.control<QLineEdit>(kReparto);
  schermo.type(kReparto, QStringLiteral("12"));
  casella.selectAll();
  QTest::keyClick(&casella, Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(schermo.text(kReparto), QString());
}

TEST_F(ArchivioArticoli, CioCheSiIncollaPassaDallaStessaRegolaCarattereACarattere) {
  const GuidedArchive schermo = apri();
  const auto incolla = [&](const QString& nome, const QString& testo) {
    QGuiApplication::clipboard()->setText(testo);
    auto& casella = schermo.control<QLineEdit>(nome);
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
  const GuidedArchive schermo = apri();
  schermo.type(kPrezzo, QStringLiteral("1,,"));
  schermo.key(Qt::Key_Tab);
  expectBoxes(bottega, {box(QStringLiteral("Attenzione il valore immesso non è di tipo numerico !!!"),
                            Icon::Critical)});
  EXPECT_EQ(schermo.text(kPrezzo), QStringLiteral("0"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return schermo.focus() == kPrezzo; })) << "back in the faulty field";
}

TEST_F(ArchivioArticoli, LasciandoUnPrezzoTroppoAltoSiDiceEDiventaZero) {
  const GuidedArchive schermo = apri();
  schermo.type(kPrezzo, QStringLiteral("100000"));
  schermo.click(kReparto);
  expectBoxes(bottega, {box(QStringLiteral("Attenzione il valore immesso > 99999.99!"), Icon::Critical)});
  EXPECT_EQ(schermo.text(kPrezzo), QStringLiteral("0"));
}

TEST_F(ArchivioArticoli, LasciandoUnRepartoTroppoAltoSiDiceESiSvuota) {
  const GuidedArchive schermo = apri();
  schermo.type(kReparto, QStringLiteral("81"));
  schermo.key(Qt::Key_Tab);
  expectBoxes(bottega, {box(kTestoReparto, Icon::Critical)});
  EXPECT_EQ(schermo.text(kReparto), QString());
}

TEST_F(ArchivioArticoli, LasciandoRepartoZeroEPrezzoVuotoNullaSiDice) {
  const GuidedArchive schermo = apri();
  schermo.type(kReparto, QStringLiteral("0"));
  schermo.type(kPrezzo, QString());
  schermo.key(Qt::Key_Tab);
  EXPECT_EQ(schermo.text(kReparto), QStringLiteral("0"));
}

TEST_F(ArchivioArticoli, PassandoAUnAltraFinestraIlCampoNonSiControlla) {
  const GuidedArchive schermo = apri();
  schermo.type(kReparto, QStringLiteral("81"));
  QWidget altra;
  altra.show();
  altra.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&altra));
  EXPECT_EQ(schermo.text(kReparto), QStringLiteral("81"));
}

TEST_F(ArchivioArticoli, UnClicSuUnComandoCheFaLasciareIlCampoNonLoLasciaPremuto) {
  const GuidedArchive schermo = apri();
  schermo.type(kReparto, QStringLiteral("81"));
  auto& tasto = schermo.control<QPushButton>(kTutti);
  QWidget riquadroAperto;
  // The box that comes up under the mouse takes the release.
  bottega.user.onBox = [&](const Box&) { QTest::mouseRelease(&riquadroAperto, Qt::LeftButton); };
  QTest::mousePress(&tasto, Qt::LeftButton);
  bottega.user.onBox = nullptr;
  EXPECT_TRUE(tasto.isDown());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !tasto.isDown(); }));
  expectBoxes(bottega, {box(kTestoReparto, Icon::Critical)});
}

}  // namespace
