// The statements of the program, as their callers word them.

#include "platform/store/test_archive.h"

namespace {

class IstruzioniArticoli : public ArchiveOfTry {
 protected:
  IstruzioniArticoli() { clock_.set(QDateTime(QDate(2024, 3, 5), QTime(23, 59, 59))); }
};

TEST_F(IstruzioniArticoli, LetturaENumerazione) {
  EXPECT_EQ(read("SELECT Codice_EAN from TAB_ARTICOLI ").RecordCount(), 5000);
  EXPECT_EQ(read("SELECT Auto_ID,Codice_EAN from TAB_ARTICOLI ORDER by Auto_ID ASC").RecordCount(), 5000);
  EXPECT_EQ(read("SELECT Auto_ID,Codice_EAN ,ID_Position from TAB_ARTICOLI ").RecordCount(), 5000);
  EXPECT_EQ(run("UPDATE TAB_ARTICOLI SET ID_Position = '4999' WHERE Codice_EAN ='';"), 5000);
  EXPECT_EQ(
      read("SELECT "
           "ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero "
           "from TAB_ARTICOLI")
          .field(QStringLiteral("id_position"))
          .int32(),
      4999);
}

TEST_F(IstruzioniArticoli, RicercaConTuttiIFiltri) {
  run("UPDATE TAB_ARTICOLI SET Codice_Articolo = 'LT1',Descrizione = 'LATTE', Prezzo = 150,Codice_EAN "
      "='8012345678901'"
      ",VarPrezzo = true,PrezzoZero = false,Reparto = 3,Filler =' ' WHERE auto_id=17");
  auto righe = read(
      "SELECT id_position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from TAB_ARTICOLI  "
      "WHERE   Codice_EAN LIKE '80*' AND  Codice_Articolo like 'lt*' AND  Descrizione like 'lat*' AND  "
      "Prezzo >=120  AND  Reparto =3 ORDER BY Codice_EAN ASC");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_EQ(righe.field(QStringLiteral("ID_POSITION")).text(), QStringLiteral("17"));
  EXPECT_TRUE(read("SELECT VarPrezzo from TAB_ARTICOLI where auto_id=17").field(0).boolean());
}

TEST_F(IstruzioniArticoli, EanDuplicatoEGiornaleDelleVariazioni) {
  run("UPDATE TAB_ARTICOLI SET Codice_EAN = 'abc' WHERE auto_id=3");
  EXPECT_FALSE(read("SELECT Codice_EAN from TAB_ARTICOLI where auto_id <>4 and Codice_Ean ='ABC';").empty());
  EXPECT_TRUE(read("SELECT Codice_EAN from TAB_ARTICOLI where auto_id <>3 and Codice_Ean ='ABC';").empty());
  EXPECT_TRUE(read("SELECT Codice_EAN from TAB_ARTICOLI where Codice_Articolo <> '' and Codice_EAN = 'abc';")
                  .empty());
  EXPECT_EQ(run("INSERT INTO TAB_ARTICOLI (Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler) "
                "Values ('80           ','A1','PANE',120,2,' ');"),
            1);
  EXPECT_EQ(value("SELECT max(auto_id) from TAB_ARTICOLI"), QStringLiteral("5001"));
  EXPECT_EQ(run("INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('80','C');"), 1);
  EXPECT_FALSE(
      read("SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '80' AND (TipoOperazione ='C') ;")
          .empty());
  EXPECT_EQ(run("UPDATE TAB_VARIAZIONI SET TipoOperazione = 'I' WHERE Codice_EAN ='80'"), 1);
  EXPECT_FALSE(
      read("SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '80' AND (TipoOperazione ='I' OR "
           "TipoOperazione ='U') ;")
          .empty());
  EXPECT_EQ(run("DELETE FROM TAB_VARIAZIONI where Codice_EAN = '80';"), 1);
  EXPECT_EQ(run("Delete  from TAB_ARTICOLI where Codice_EAN ='abc';"), 1);
}

TEST_F(IstruzioniArticoli, IndiceDegliEan) {
  EXPECT_EQ(run("INSERT INTO TAB_EAN_NUMERICI (Codice_EAN,Codice_EAN_Num,Index,Spare) Values "
                "('80',4294967295,12,'');"),
            1);
  EXPECT_EQ(run("UPDATE TAB_EAN_NUMERICI SET Index = -1 WHERE Codice_Ean_num = 4294967295;"), 1);
  auto righe = read("SELECT Index,Codice_EAN_Num from TAB_EAN_NUMERICI");
  EXPECT_EQ(righe.field(QStringLiteral("Index")).int32(), -1);
  EXPECT_EQ(righe.field(1).text(), QStringLiteral("4294967295"));
}

TEST_F(IstruzioniArticoli, ImportazioneConCodaPersaFallisce) {
  EXPECT_EQ(run("UPDATE TAB_ARTICOLI SET  Codice_ean ='80', Codice_Articolo ='0',Descrizione ='X',Prezzo "
                "=10,Reparto =1,"
                "Filler ='ERR' WHERE auto_id=9"),
            1);
  EXPECT_EQ(read("SELECT Filler from TAB_ARTICOLI where Filler ='ERR';").RecordCount(), 1);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET  Codice_ean ='80', Codice_Articolo ='0',Descrizione "
                     "='X',Prezzo =10,Reparto =1,"),
            3075);
}

TEST_F(IstruzioniArticoli, UnaCasellaSenzaRigaNonToccaNulla) {
  EXPECT_EQ(
      run("UPDATE TAB_ARTICOLI SET Descrizione = 'A',Codice_EAN ='1',Prezzo =1,Reparto =1,varprezzo = true,"
          "prezzozero = false WHERE auto_id =9999"),
      0);
}

TEST_F(IstruzioniArticoli, SenzaCasellaIlSalvataggioFallisce) {
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Prezzo = 1 WHERE auto_id="), 3075);
}

TEST_F(IstruzioniArticoli, IlVendutoHaIlGiornoDelPcEICodiciIncrociati) {
  run("UPDATE TAB_ARTICOLI SET Codice_Articolo = 'ART',Codice_EAN ='EAN',Descrizione='PANE' WHERE auto_id=2");
  EXPECT_EQ(
      run("insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
          "sconto_giornaliero,Tot_giorn_articoli_venduti) select FORMAT(DATE(), "
          "'yyyymmdd'),2,codice_articolo,"
          "codice_ean,descrizione,-150,10,3 from tab_articoli where auto_id=2"),
      1);
  auto righe = read(
      "SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,Tot_giorn_articoli_venduti,"
      "Sconto_giornaliero from TAB_VENDUTO ORDER BY DATA, Codice_EAN ASC");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_EQ(righe.field(QStringLiteral("Data")).text(), QStringLiteral("20240305"));
  EXPECT_EQ(righe.field(QStringLiteral("Codice_EAN")).text(), QStringLiteral("ART"));
  EXPECT_EQ(righe.field(QStringLiteral("Codice_Articolo")).text(), QStringLiteral("EAN"));
  EXPECT_EQ(righe.field(QStringLiteral("importo_giornaliero")).int32(), -150);
}

TEST_F(IstruzioniArticoli, LaRicercaDelVendutoNonSceglieLoSconto) {
  run("INSERT INTO TAB_VENDUTO VALUES ('20240305',1,'ART','EAN','PANE',100,0,1)");
  auto righe = read(
      "SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,Tot_giorn_articoli_venduti "
      "from "
      "TAB_VENDUTO WHERE (Data >= '20240301' AND Data <= '20240331')  AND Codice_EAN like 'a*' AND "
      "Descrizione "
      "like 'pa*' ORDER BY Data, Codice_EAN ASC");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_EQ(numberError([&] { righe.field(QStringLiteral("Sconto_giornaliero")); }), 3265);
}

// Which fields of the search are filled decides where WHERE, AND and ORDER BY stand.
TEST_F(IstruzioniArticoli, RicercaConOgniSceltaDiFiltri) {
  const std::string filtri[] = {"  Codice_EAN LIKE '*'", " Codice_Articolo like '*'", " Descrizione like '*'",
                                " Prezzo >=0 ", " Reparto =1"};
  for (unsigned scelta = 0; scelta < 1U << std::size(filtri); ++scelta) {
    std::string sql =
        "SELECT id_position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from TAB_ARTICOLI ";
    const char* legame = " WHERE ";
    for (std::size_t i = 0; i < std::size(filtri); ++i) {
      if ((scelta >> i & 1U) == 0) continue;
      sql += legame + filtri[i];
      legame = " AND ";
    }
    if (scelta != 0) sql += " ORDER BY Codice_EAN ASC";
    EXPECT_EQ(read(sql.c_str()).RecordCount(), 5000) << sql;
  }
}

// The department of an imported line goes into the statement as it stands in the file.
TEST_F(IstruzioniArticoli, UnRepartoImportatoCheNonEUnNumeroIntero) {
  const auto reparto = [&](const char* testo) {
    return numberOf(
        (std::string("UPDATE TAB_ARTICOLI SET Reparto =") + testo + ",Filler =' ' WHERE auto_id =9").c_str());
  };
  EXPECT_EQ(reparto("07"), 0);
  EXPECT_EQ(reparto(" 7 "), 0);
  EXPECT_EQ(reparto("5,5"), 3075);
  EXPECT_EQ(reparto("5.5"), 3421);
  EXPECT_EQ(reparto("99999"), 3421);
  EXPECT_EQ(reparto("abc"), 3061);
  EXPECT_EQ(reparto("#1/1/2024#"), 3421);
  EXPECT_EQ(value("SELECT Reparto from TAB_ARTICOLI where auto_id=9"), QStringLiteral("7"));
}

TEST_F(IstruzioniArticoli, ImpostazioniDellArchivio) {
  EXPECT_EQ(read("SELECT Num_Articoli_Cassa,Data_end_update,Data_end_scarico from TAB_VARIE").RecordCount(),
            1);
}

}  // namespace
