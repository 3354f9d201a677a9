#include "articles/archive_grid.h"

#include <gmock/gmock.h>

#include <QLocale>

#include "articles/back_room.h"
#include "controls/FlexGrid.h"
#include "core/wait_box.h"
#include "platform/ui/busy_guard.h"

using namespace articles;

namespace {

struct GrigliaCentrale : testing::Test {
  BackRoom bottega;
  FlexGrid griglia;

  void SetUp() override { GestGridCentral(griglia); }

  elenco::EsitoElenco riempi() { return RiempiGridCentral(griglia, bottega.contesto); }
  elenco::EsitoElenco cerca(const QString& condizione) {
    return RiempiRicerca(griglia,
                         asWritten(QStringLiteral("SELECT id_position,Codice_EAN,Codice_Articolo,Descrizione,"
                                                  "Prezzo,Reparto,Filler from TAB_ARTICOLI ") +
                                   condizione),
                         bottega.contesto);
  }
  QString riga(int numero) {
    QStringList celle;
    for (int colonna = 0; colonna < griglia.Cols(); ++colonna) celle += griglia.TextMatrix(numero, colonna);
    return celle.join(u'|');
  }
  /// The wanted failure shows this box and ends the program.
  template <typename Passo>
  void termina(Passo&& passo, const QString& messaggio) {
    EXPECT_THROW(passo(), ProgramEnded);
    expectBoxes(bottega, {criticalBox(messaggio)});
    EXPECT_TRUE(bottega.user.terminated());
    EXPECT_FALSE(BusyGuard::active());
  }
};

const QColor kArancio(255, 128, 0);
const QString kGrave =
    QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!");
QString anomalia(int numero) {
  return QStringLiteral("RiempiGridCentral: uscita dal programma per condizione anomala %1 - *").arg(numero);
}

TEST_F(GrigliaCentrale, LeColonneHannoTestataLarghezzaEAllineamento) {
  const elenco::Colonne colonne = ColonneArticoli();
  const std::array testate{u"N.",     u"COD. EAN", u"COD. ARTICOLI", u"DESCRIZIONE ",
                           u"PREZZO", u"N.REP",    u"VAR.PRZ",       u"PREZZO 0"};
  const std::array larghezze{500, 1600, 1600, 2600, 1100, 900, 1000, 1000};
  const std::array versi{Qt::AlignHCenter, Qt::AlignLeft,  Qt::AlignLeft,    Qt::AlignLeft,
                         Qt::AlignRight,   Qt::AlignRight, Qt::AlignHCenter, Qt::AlignHCenter};
  ASSERT_EQ(colonne.size(), testate.size());
  for (std::size_t i = 0; i < colonne.size(); ++i) {
    EXPECT_EQ(QString::fromUtf16(colonne[i].testata), QString::fromUtf16(testate.at(i)));
    EXPECT_EQ(griglia.TextMatrix(0, static_cast<int>(i)), QString::fromUtf16(testate.at(i)));
    EXPECT_EQ(colonne[i].twip, larghezze.at(i));
    EXPECT_EQ(colonne[i].allineamento & Qt::AlignHorizontal_Mask, versi.at(i));
  }
}

TEST_F(GrigliaCentrale, OgniArticoloHaLaSuaRigaNellOrdineDellaTabella) {
  bottega.openArchive();
  writeArticles(bottega, {{QStringLiteral("8001"), QStringLiteral("CAFFÈ"), 1250, 7, true, false},
                          {QStringLiteral("7001"), QStringLiteral("TÈ"), 5, 80, false, true}});
  const elenco::EsitoElenco esito = riempi();
  EXPECT_TRUE(esito.letto);
  EXPECT_TRUE(esito.intero);
  EXPECT_EQ(esito.righe, 5000);
  EXPECT_EQ(griglia.Rows(), 5001);
  const QString virgola = QLocale().decimalPoint();
  EXPECT_EQ(riga(1), QStringLiteral("1|8001|A1|CAFFÈ|12") + virgola + QStringLiteral("50|7|S|N"));
  EXPECT_EQ(riga(2), QStringLiteral("2|7001|A2|TÈ|0") + virgola + QStringLiteral("05|80|N|S"));
  EXPECT_EQ(griglia.TextMatrix(5000, kColonnaPosizione), QStringLiteral("5000"));
}

TEST_F(GrigliaCentrale, UnPassaggioDiEventiARecordColPortoneChiuso) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 100"));
  int chiusi = 0;
  bottega.user.onPass = [&] { chiusi += BusyGuard::active() ? 1 : 0; };
  riempi();
  EXPECT_EQ(bottega.user.passes(), 100);
  EXPECT_EQ(chiusi, 100);
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(GrigliaCentrale, SoloIlFillerERRSegnaLaRiga) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' where auto_id =2"));
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler =null where auto_id =3"));
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='err' where auto_id =4"));
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 4"));
  riempi();
  for (int numero = 1; numero <= 4; ++numero)
    for (int colonna = kColonnaEan; colonna <= kColonnaReparto; ++colonna)
      EXPECT_EQ(griglia.CellBackColor(numero, colonna), numero == 2 ? kArancio : QColor(Qt::white))
          << numero << ' ' << colonna;
  EXPECT_NE(griglia.CellBackColor(2, kColonnaPosizione), kArancio);
  EXPECT_NE(griglia.CellBackColor(2, kColonnaVarPrezzo), kArancio);
}

TEST_F(GrigliaCentrale, UnNulloInOgniColonnaEUnaCellaVuota) {
  bottega.openWith({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position TEXT,Codice_EAN TEXT,"
                                   "Codice_Articolo TEXT,Descrizione TEXT,Prezzo INTEGER,Reparto INTEGER,"
                                   "Filler TEXT,VarPrezzo INTEGER,PrezzoZero INTEGER)"),
                    QStringLiteral("INSERT INTO TAB_ARTICOLI DEFAULT VALUES")});
  riempi();
  ASSERT_EQ(griglia.Rows(), 2);
  EXPECT_EQ(riga(1), QStringLiteral("|||||||"));
  EXPECT_NE(griglia.CellBackColor(1, kColonnaEan), kArancio);
}

TEST_F(GrigliaCentrale, UnNulloAllaVoltaLasciaLeAltreCelle) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 1"));
  const std::array colonne{QStringLiteral("ID_Position"),     QStringLiteral("Codice_EAN"),
                           QStringLiteral("Codice_Articolo"), QStringLiteral("Descrizione"),
                           QStringLiteral("Prezzo"),          QStringLiteral("Reparto")};
  for (std::size_t i = 0; i < colonne.size(); ++i) {
    writeArticles(bottega, {{QStringLiteral("8001"), QStringLiteral("PANE"), 100, 2, true, true}});
    bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET ID_Position ='1'"));
    bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET %1 =null").arg(colonne.at(i)));
    riempi();
    ASSERT_EQ(griglia.Rows(), 2);
    for (int cella = 0; cella < griglia.Cols(); ++cella)
      EXPECT_EQ(griglia.TextMatrix(1, cella).isEmpty(), cella == static_cast<int>(i)) << i << ' ' << cella;
  }
}

TEST_F(GrigliaCentrale, UnaTabellaVuotaSvuotaLaGrigliaELasciaUnaRiga) {
  bottega.openArchive();
  riempi();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI"));
  EXPECT_EQ(riempi().righe, 0);
  EXPECT_EQ(griglia.Rows(), 2);
  EXPECT_EQ(riga(1), QStringLiteral("|||||||"));
}

TEST_F(GrigliaCentrale, SenzaLaTabellaDiceIlMessaggioGraveETermina) {
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  termina([this] { riempi(); }, kGrave);
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
}

TEST_F(GrigliaCentrale, SenzaUnaColonnaDiceLAnomaliaETermina) {
  bottega.openWith({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position TEXT)")});
  termina([this] { riempi(); }, anomalia(3061));
  EXPECT_EQ(varGlobal().FlagAnomalia, kFalso);
}

TEST_F(GrigliaCentrale, UnPrezzoCheNonENumeroDiceLAnomaliaETermina) {
  bottega.openWith({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position,Codice_EAN,Codice_Articolo,"
                                   "Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero)"),
                    QStringLiteral("INSERT INTO TAB_ARTICOLI (Prezzo) VALUES ('tanto')")});
  termina([this] { riempi(); }, anomalia(13));
}

TEST_F(GrigliaCentrale, UnPrezzoOltreITrentadueBitDiceLAnomaliaETermina) {
  bottega.openWith({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position,Codice_EAN,Codice_Articolo,"
                                   "Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero)"),
                    QStringLiteral("INSERT INTO TAB_ARTICOLI (Prezzo) VALUES (3000000000)")});
  termina([this] { riempi(); }, anomalia(6));
}

TEST_F(GrigliaCentrale, LaRicercaLasciaVuoteLeLettereENonSegnaLeRighe) {
  bottega.openArchive();
  writeArticles(bottega, {{QStringLiteral("8001"), QStringLiteral("PANE"), 100, 2, true, true}});
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' where auto_id =1"));
  cerca(QStringLiteral(" WHERE   Codice_EAN LIKE '8001*' ORDER BY Codice_EAN ASC"));
  ASSERT_EQ(griglia.Rows(), 2);
  EXPECT_EQ(griglia.TextMatrix(1, kColonnaDescrizione), QStringLiteral("PANE"));
  EXPECT_EQ(griglia.TextMatrix(1, kColonnaVarPrezzo), QString());
  EXPECT_EQ(griglia.TextMatrix(1, kColonnaPrezzoZero), QString());
  EXPECT_NE(griglia.CellBackColor(1, kColonnaEan), kArancio);
}

TEST_F(GrigliaCentrale, UnaRicercaConApostrofoSiDiceELaListaRestaComEra) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 3"));
  riempi();
  EXPECT_FALSE(cerca(QStringLiteral(" WHERE  Descrizione like 'L'A*' ORDER BY Codice_EAN ASC")).letto);
  expectBoxes(bottega, {criticalBox(QStringLiteral("3075 - *"))});
  EXPECT_FALSE(bottega.user.terminated());
  EXPECT_EQ(griglia.Rows(), 4);
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(GrigliaCentrale, UnaCellaGuastaDiUnaRicercaSiDiceELElencoVaAvanti) {
  bottega.openWith(
      {QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,"
                      "Reparto,Filler,VarPrezzo,PrezzoZero)"),
       QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES ('1','81','A1','UNO',100,2,' ',0,0),"
                      "('2','82','A2','DUE',3000000000,3,' ',0,0),('3','83','A3','TRE',300,4,' ',0,0)")});
  const elenco::EsitoElenco esito = cerca(QStringLiteral(" ORDER BY Codice_EAN ASC"));
  expectBoxes(bottega, {criticalBox(QStringLiteral("6 - *"))});
  EXPECT_FALSE(bottega.user.terminated());
  EXPECT_TRUE(esito.intero);
  EXPECT_EQ(esito.righe, 3);
  ASSERT_EQ(griglia.Rows(), 4);
  const QString virgola = QLocale().decimalPoint();
  EXPECT_EQ(riga(1), QStringLiteral("1|81|A1|UNO|1") + virgola + QStringLiteral("00|2||"));
  EXPECT_EQ(riga(2), QStringLiteral("2|82|A2|DUE||3||"));
  EXPECT_EQ(riga(3), QStringLiteral("3|83|A3|TRE|3") + virgola + QStringLiteral("00|4||"));
}

TEST_F(GrigliaCentrale, UnaRicercaSenzaLaTabellaDiceIlMessaggioGraveETermina) {
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  termina([this] { cerca({}); }, kGrave);
}

}  // namespace
