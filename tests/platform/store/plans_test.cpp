// A column that is compared and not found by an index costs a second for the five thousand statements of a
// run.

#include <gmock/gmock.h>

#include "platform/store/test_archive.h"

namespace {

class Piani : public ArchiveOfTry, public testing::WithParamInterface<const char*> {};

TEST_P(Piani, LaIstruzioneRipetutaCercaPerIndice) {
  const std::string come = piano(GetParam()).toStdString();
  EXPECT_THAT(come, testing::HasSubstr("SEARCH"));
  EXPECT_THAT(come, testing::Not(testing::HasSubstr("SCAN TAB")));
}

INSTANTIATE_TEST_SUITE_P(
    Tutte, Piani,
    testing::Values(
        "UPDATE TAB_ARTICOLI SET ID_Position = '12' WHERE Codice_EAN ='80';",
        "UPDATE TAB_EAN_NUMERICI SET Index = -1 WHERE Codice_Ean_num = 4294967295;",
        "UPDATE TAB_ARTICOLI SET Descrizione = 'X',varprezzo = true WHERE auto_id =12",
        "SELECT Codice_EAN from TAB_ARTICOLI where auto_id <>5 and Codice_Ean ='80';",
        "SELECT Codice_EAN from TAB_ARTICOLI where Codice_Articolo <> '1' and Codice_EAN = '80';",
        "Delete  from TAB_ARTICOLI where Codice_EAN ='80';",
        "SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '80' AND (TipoOperazione ='C') ;",
        "DELETE FROM TAB_VARIAZIONI where Codice_EAN = '80';",
        "insert into tab_venduto (Data,id_plu) select FORMAT(DATE(), 'yyyymmdd'),2 from tab_articoli where "
        "auto_id=2",
        "SELECT id_position from TAB_ARTICOLI  WHERE   Codice_EAN LIKE '80*' ORDER BY Codice_EAN ASC",
        "SELECT id_position from TAB_ARTICOLI  WHERE  Codice_Articolo like 'a*' AND  Reparto =5 ORDER BY "
        "Codice_EAN ASC",
        "SELECT id_position from TAB_ARTICOLI  WHERE  Descrizione like 'LATTE*' ORDER BY Codice_EAN ASC",
        "SELECT Data from TAB_VENDUTO WHERE (Data >= '20240101' AND Data <= '20241231')  AND Codice_EAN like "
        "'8*' ORDER BY "
        "Data, Codice_EAN ASC"));

TEST_F(ArchiveOfTry, LElencoDelVendutoNonHaBisognoDiUnOrdinamento) {
  EXPECT_THAT(piano("SELECT Data,Codice_EAN,Descrizione from TAB_VENDUTO ORDER BY DATA, Codice_EAN ASC")
                  .toStdString(),
              testing::Not(testing::HasSubstr("TEMP B-TREE")));
}

TEST_F(ArchiveOfTry, IlPrefissoConAccentoTrovaMaiuscoleEMinuscole) {
  run("UPDATE TAB_ARTICOLI SET Descrizione = 'CAFFÈ NERO' WHERE auto_id=4");
  run("UPDATE TAB_ARTICOLI SET Descrizione = 'ZAZZERA' WHERE auto_id=5");
  run("UPDATE TAB_ARTICOLI SET Descrizione = 'Zazà' WHERE auto_id=6");
  EXPECT_EQ(read("SELECT auto_id FROM TAB_ARTICOLI WHERE Descrizione like 'caffè*'").RecordCount(), 1);
  EXPECT_EQ(read("SELECT auto_id FROM TAB_ARTICOLI WHERE Descrizione like 'zAZ*'").RecordCount(), 2);
  EXPECT_EQ(read("SELECT auto_id FROM TAB_ARTICOLI WHERE Descrizione like 'ZAZZ*'").RecordCount(), 1);
}

TEST_F(ArchiveOfTry, UnModelloSuUnNumeroGuardaLeSueCifre) {
  run("CREATE TABLE T (n INTEGER)");
  run("CREATE INDEX N ON T (n)");
  run("INSERT INTO T VALUES (1200)");
  EXPECT_EQ(read("SELECT n FROM T WHERE n LIKE '12*'").RecordCount(), 1);
}

TEST_F(ArchiveOfTry, UnaColonnaSensibileAlleMaiuscoleNonPerdeRighe) {
  run("CREATE TABLE T (t TEXT)");
  run("CREATE INDEX I ON T (t COLLATE NOCASE)");
  run("INSERT INTO T VALUES ('ABC')");
  EXPECT_EQ(read("SELECT t FROM T WHERE t LIKE 'ab*'").RecordCount(), 1);
}

}  // namespace
