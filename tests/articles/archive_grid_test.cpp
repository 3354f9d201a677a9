#include "articles/archive_grid.h"

#include <gmock/gmock.h>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "articles/guided_screen.h"
#include "platform/ui/busy_guard.h"

using namespace articles;

namespace {

using Testi = std::array<QString, kColonneArticoli>;

struct GrigliaCentrale : testing::Test {
  Bottega bottega;
  int articoli = -1;
  std::vector<RigaArticolo> righe;

  GrigliaArticoli griglia() {
    return {.dimensiona =
                [this](int quanti) {
                  EXPECT_EQ(articoli, -1);
                  articoli = quanti;
                },
            .scrivi =
                [this](int riga, const RigaArticolo& articolo) {
                  righe.push_back(articolo);
                  EXPECT_EQ(riga, static_cast<int>(righe.size()));
                }};
  }
  void riempi() { RiempiGridCentral(griglia(), bottega.utente); }
  void cerca(const QString& condizione) {
    RiempiRicerca(QStringLiteral("SELECT id_position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,"
                                 "Filler from TAB_ARTICOLI ") +
                      condizione,
                  griglia(), bottega.utente);
  }
  /// The wanted failure shows this box and ends the program.
  template <typename Passo>
  void termina(Passo&& passo, const QString& messaggio) {
    EXPECT_THROW(passo(), ProgramEnded);
    attendi(bottega, {riquadro(messaggio, Icon::Critical)});
    EXPECT_TRUE(bottega.utente.terminated());
    EXPECT_FALSE(BusyGuard::active());
  }
};

const QString kGrave =
    QStringLiteral("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA ABORTITA !!!");
QString anomalia(int numero) {
  return QStringLiteral("RiempiGridCentral: uscita dal programma per condizione anomala %1 - *").arg(numero);
}

TEST_F(GrigliaCentrale, LeColonneHannoTestataLarghezzaEAllineamento) {
  const auto& colonne = ColonneArticoli();
  const std::array testate{u"N.",     u"COD. EAN", u"COD. ARTICOLI", u"DESCRIZIONE ",
                           u"PREZZO", u"N.REP",    u"VAR.PRZ",       u"PREZZO 0"};
  const std::array larghezze{500, 1600, 1600, 2600, 1100, 900, 1000, 1000};
  const std::array versi{Qt::AlignHCenter, Qt::AlignLeft,  Qt::AlignLeft,    Qt::AlignLeft,
                         Qt::AlignRight,   Qt::AlignRight, Qt::AlignHCenter, Qt::AlignHCenter};
  for (std::size_t i = 0; i < colonne.size(); ++i) {
    EXPECT_EQ(colonne.at(i).testata, QString::fromUtf16(testate.at(i)));
    EXPECT_EQ(colonne.at(i).twip, larghezze.at(i));
    EXPECT_EQ(colonne.at(i).allineamento & Qt::AlignHorizontal_Mask, versi.at(i));
  }
}

TEST_F(GrigliaCentrale, OgniArticoloHaLaSuaRigaNellOrdineDellaTabella) {
  bottega.apriArchivio();
  scriviArticoli(bottega, {{QStringLiteral("8001"), QStringLiteral("CAFFÈ"), 1250, 7, true, false},
                           {QStringLiteral("7001"), QStringLiteral("TÈ"), 5, 80, false, true}});
  riempi();
  EXPECT_EQ(articoli, 5000);
  ASSERT_EQ(righe.size(), 5000U);
  const QString virgola = QLocale().decimalPoint();
  EXPECT_EQ(righe[0].testi,
            (Testi{QStringLiteral("1"), QStringLiteral("8001"), QStringLiteral("A1"), QStringLiteral("CAFFÈ"),
                   QStringLiteral("12") + virgola + QStringLiteral("50"), QStringLiteral("7"),
                   QStringLiteral("S"), QStringLiteral("N")}));
  EXPECT_EQ(righe[1].testi, (Testi{QStringLiteral("2"), QStringLiteral("7001"), QStringLiteral("A2"),
                                   QStringLiteral("TÈ"), QStringLiteral("0") + virgola + QStringLiteral("05"),
                                   QStringLiteral("80"), QStringLiteral("N"), QStringLiteral("S")}));
  EXPECT_EQ(righe[4999].testi[kColonnaPosizione], QStringLiteral("5000"));
}

TEST_F(GrigliaCentrale, UnPassaggioDiEventiARecordColPortoneChiuso) {
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 100"));
  int chiusi = 0;
  bottega.utente.onPass = [&] { chiusi += BusyGuard::active() ? 1 : 0; };
  riempi();
  EXPECT_EQ(bottega.utente.passes(), 100);
  EXPECT_EQ(chiusi, 100);
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(GrigliaCentrale, SoloIlFillerERRSegnaLaRiga) {
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' where auto_id =2"));
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler =null where auto_id =3"));
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 3"));
  riempi();
  ASSERT_EQ(righe.size(), 3U);
  EXPECT_FALSE(righe[0].errata);
  EXPECT_TRUE(righe[1].errata);
  EXPECT_FALSE(righe[2].errata);
}

TEST_F(GrigliaCentrale, UnNulloInOgniColonnaEUnaCellaVuota) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position TEXT,Codice_EAN TEXT,"
                                    "Codice_Articolo TEXT,Descrizione TEXT,Prezzo INTEGER,Reparto INTEGER,"
                                    "Filler TEXT,VarPrezzo INTEGER,PrezzoZero INTEGER)"),
                     QStringLiteral("INSERT INTO TAB_ARTICOLI DEFAULT VALUES")});
  riempi();
  ASSERT_EQ(righe.size(), 1U);
  EXPECT_EQ(righe[0].testi, Testi{});
  EXPECT_FALSE(righe[0].errata);
}

TEST_F(GrigliaCentrale, UnNulloAllaVoltaLasciaLeAltreCelle) {
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 1"));
  const std::array colonne{QStringLiteral("ID_Position"),     QStringLiteral("Codice_EAN"),
                           QStringLiteral("Codice_Articolo"), QStringLiteral("Descrizione"),
                           QStringLiteral("Prezzo"),          QStringLiteral("Reparto")};
  for (std::size_t i = 0; i < colonne.size(); ++i) {
    scriviArticoli(bottega, {{QStringLiteral("8001"), QStringLiteral("PANE"), 100, 2, true, true}});
    bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET ID_Position ='1'"));
    bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET %1 =null").arg(colonne.at(i)));
    righe.clear();
    articoli = -1;
    riempi();
    ASSERT_EQ(righe.size(), 1U);
    for (std::size_t cella = 0; cella < righe[0].testi.size(); ++cella)
      EXPECT_EQ(righe[0].testi.at(cella).isEmpty(), cella == i) << i << ' ' << cella;
  }
}

TEST_F(GrigliaCentrale, UnaTabellaVuotaDiceZeroArticoli) {
  bottega.apriArchivio();
  bottega.esegui(QStringLiteral("Delete  from TAB_ARTICOLI"));
  riempi();
  EXPECT_EQ(articoli, 0);
  EXPECT_TRUE(righe.empty());
}

TEST_F(GrigliaCentrale, SenzaLaTabellaDiceIlMessaggioGraveETermina) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  termina([this] { riempi(); }, kGrave);
  EXPECT_EQ(varGlobal().FlagAnomalia, kVero);
}

TEST_F(GrigliaCentrale, SenzaUnaColonnaDiceLAnomaliaETermina) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position TEXT)")});
  termina([this] { riempi(); }, anomalia(3061));
  EXPECT_EQ(varGlobal().FlagAnomalia, kFalso);
}

TEST_F(GrigliaCentrale, UnPrezzoCheNonENumeroDiceLAnomaliaETermina) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position,Codice_EAN,Codice_Articolo,"
                                    "Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero)"),
                     QStringLiteral("INSERT INTO TAB_ARTICOLI (Prezzo) VALUES ('tanto')")});
  termina([this] { riempi(); }, anomalia(13));
}

TEST_F(GrigliaCentrale, UnPrezzoOltreITrentadueBitDiceLAnomaliaETermina) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE TAB_ARTICOLI (ID_Position,Codice_EAN,Codice_Articolo,"
                                    "Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero)"),
                     QStringLiteral("INSERT INTO TAB_ARTICOLI (Prezzo) VALUES (3000000000)")});
  termina([this] { riempi(); }, anomalia(6));
}

TEST_F(GrigliaCentrale, LaRicercaLasciaVuoteLeLettereENonSegnaLeRighe) {
  bottega.apriArchivio();
  scriviArticoli(bottega, {{QStringLiteral("8001"), QStringLiteral("PANE"), 100, 2, true, true}});
  bottega.esegui(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' where auto_id =1"));
  cerca(QStringLiteral(" WHERE   Codice_EAN LIKE '8001*' ORDER BY Codice_EAN ASC"));
  ASSERT_EQ(righe.size(), 1U);
  EXPECT_EQ(righe[0].testi[kColonnaDescrizione], QStringLiteral("PANE"));
  EXPECT_EQ(righe[0].testi[kColonnaVarPrezzo], QString());
  EXPECT_EQ(righe[0].testi[kColonnaPrezzoZero], QString());
  EXPECT_FALSE(righe[0].errata);
}

TEST_F(GrigliaCentrale, UnaRicercaConApostrofoSiDiceESiVaAvanti) {
  bottega.apriArchivio();
  cerca(QStringLiteral(" WHERE  Descrizione like 'L'A*' ORDER BY Codice_EAN ASC"));
  attendi(bottega, {riquadro(QStringLiteral("3075 - *"), Icon::Critical)});
  EXPECT_FALSE(bottega.utente.terminated());
  EXPECT_TRUE(righe.empty());
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(GrigliaCentrale, UnaRicercaSenzaLaTabellaDiceIlMessaggioGraveETermina) {
  bottega.apriVuoto({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  termina([this] { cerca({}); }, kGrave);
}

}  // namespace
