#include "platform/store/dialect.h"

#include <gmock/gmock.h>

#include "platform/store/test_archive.h"

namespace store {
namespace {

Dictionary conEan() {
  Dictionary dizionario;
  dizionario.add("Codice_EAN");
  return dizionario;
}

std::string testi(const Translation& traduzione) {
  std::string tutti;
  for (const Parameter& p : traduzione.parameters) {
    if (p.kind == Parameter::Kind::Integer) tutti += std::to_string(p.integer);
    if (p.kind == Parameter::Kind::Real) tutti += "reale";
    if (p.kind == Parameter::Kind::Text) tutti.append(1, '\'').append(p.text).append(1, '\'');
    tutti += '|';
  }
  return tutti;
}

std::string sql(std::string_view sorgente) {
  Translation traduzione;
  Translate(sorgente, conEan(), traduzione);
  return traduzione.sql;
}

std::string parametri(std::string_view sorgente) {
  Translation traduzione;
  Translate(sorgente, conEan(), traduzione);
  return testi(traduzione);
}

int numero(std::string_view sorgente) {
  return numberError([&] { sql(sorgente); });
}

TEST(Dialetto, IValoriEsconoDallaIstruzione) {
  EXPECT_EQ(sql("UPDATE T SET a = 'x', b =12 WHERE c=7"), "UPDATE [T] SET [a] = ? , [b] = ? WHERE [c] = ? ");
  EXPECT_EQ(parametri("UPDATE T SET a = 'x', b =12 WHERE c=7"), "'x'|12|7|");
}

TEST(Dialetto, IstruzioniConAltriValoriHannoLoStessoTesto) {
  EXPECT_EQ(sql("UPDATE T SET a='uno',v = true WHERE c=1"),
            sql("UPDATE T SET a='due',v = false WHERE c=5000"));
}

TEST(Dialetto, ITestiStannoTraApiciSempliciODoppi) {
  EXPECT_EQ(parametri("SELECT a FROM T WHERE a = \"l'ora\" OR a = 'dice \"no\"'"), "'l'ora'|'dice \"no\"'|");
}

TEST(Dialetto, UnApiceRaddoppiatoValeUno) {
  EXPECT_EQ(parametri("SELECT a FROM T WHERE a = 'dell''anno' OR a = ''"), "'dell'anno'|''|");
}

TEST(Dialetto, NumeriInteriDecimaliEGrandi) {
  Translation traduzione;
  Translate("INSERT INTO T VALUES (1, 2.5, .5, 4294967295, 1.5E+09, 99999999999999999999)", {}, traduzione);
  ASSERT_EQ(traduzione.parameters.size(), 6U);
  EXPECT_EQ(traduzione.parameters[0].integer, 1);
  EXPECT_DOUBLE_EQ(traduzione.parameters[1].real, 2.5);
  EXPECT_DOUBLE_EQ(traduzione.parameters[2].real, 0.5);
  EXPECT_EQ(traduzione.parameters[3].integer, 4294967295);
  EXPECT_DOUBLE_EQ(traduzione.parameters[4].real, 1.5e9);
  EXPECT_DOUBLE_EQ(traduzione.parameters[5].real, 1e20);
}

TEST(Dialetto, LePosizioniDiColonnaRestanoAlLoroPosto) {
  EXPECT_EQ(sql("SELECT a FROM T WHERE b = 3 ORDER BY 1"), "SELECT [a] FROM [T] WHERE [b] = ? ORDER BY 1 ");
  EXPECT_EQ(sql("SELECT a FROM T GROUP BY 1 HAVING a > 2"), "SELECT [a] FROM [T] GROUP BY 1 HAVING [a] > ? ");
}

TEST(Dialetto, DueMenoNonDiventanoUnCommento) {
  EXPECT_EQ(sql("UPDATE T SET a =--5"), "UPDATE [T] SET [a] = - - ? ");
  EXPECT_EQ(sql("SELECT 1/*2 FROM T"), "SELECT ? / * ? FROM [T] ");
}

TEST(Dialetto, IndexENomiRiservatiSonoColonne) {
  EXPECT_EQ(sql("UPDATE T SET Index = 1 WHERE [Order] = 2"), "UPDATE [T] SET [Index] = ? WHERE [Order] = ? ");
  EXPECT_EQ(sql("SELECT T.Order, T.* FROM T"), "SELECT [T] . [Order] , [T] . * FROM [T] ");
}

// A moment compared by its whole form: the index answers first, and the form decides.
TEST(Dialetto, IlFormatoInteroDiUnMomentoSiCercaPerIndice) {
  Dictionary dizionario;
  dizionario.addMoment("DataFattura");
  const std::string_view sorgente =
      "SELECT a From T where b =7 and format(datafattura,'dd/mm/yy hh:mm:ss') = '05/03/24 10.20.30'";
  Translation traduzione;
  Translate(sorgente, dizionario, traduzione);
  EXPECT_EQ(traduzione.sql,
            "SELECT [a] FROM [T] WHERE [b] = ? AND ( substr( [datafattura] , 3 ) = momento_breve( ?3 ) AND "
            "formato( [datafattura] , ?2 ) = ?3 ) ");
  EXPECT_EQ(testi(traduzione), "7|'dd/mm/yy hh:mm:ss'|'05/03/24 10.20.30'|");
  EXPECT_TRUE(traduzione.reusable);
}

TEST(Dialetto, UnAltroFormatoOUnaColonnaCheNonEUnMomentoRestanoComeSono) {
  Dictionary dizionario;
  dizionario.addMoment("DataFattura");
  for (const std::string_view sorgente :
       {"SELECT a FROM T WHERE format(DataFattura,'yyyymmdd') = '20240305'",
        "SELECT a FROM T WHERE format(Data,'dd/mm/yy hh:mm:ss') = '05/03/24 10.20.30'",
        "SELECT a FROM T WHERE format(DataFattura,'dd/mm/yy hh:mm:ss') <> '05/03/24 10.20.30'",
        "SELECT a FROM T WHERE format(DataFattura,'dd/mm/yy hh:mm:ss') = 'dell''anno'",
        "SELECT format(DataFattura,'dd/mm/yy hh:mm:ss') FROM T"}) {
    Translation traduzione;
    Translate(sorgente, dizionario, traduzione);
    EXPECT_EQ(traduzione.sql.find("substr"), std::string::npos) << sorgente;
    EXPECT_NE(traduzione.sql.find("formato"), std::string::npos) << sorgente;
  }
}

// A moment goes in in the form that it is kept in: the column's guard has nothing left to write.
TEST(Dialetto, UnMomentoInseritoVaSubitoNellaSuaForma) {
  Dictionary dizionario;
  dizionario.addMomentAt("Fatture", 1);
  Translation traduzione;
  Translate("INSERT INTO FATTURE VALUES (7,'05/03/24 10:20:30',-1,'x, (y)')", dizionario, traduzione);
  EXPECT_EQ(traduzione.sql, "INSERT INTO [FATTURE] VALUES ( ? , data_ordinabile ( ? ) , - ? , ? ) ");
  EXPECT_EQ(testi(traduzione), "7|'05/03/24 10:20:30'|1|'x, (y)'|");
  EXPECT_TRUE(traduzione.reusable);
}

TEST(Dialetto, UnTestoCheNonEIlSoloValoreDiUnMomentoRestaComE) {
  Dictionary dizionario;
  dizionario.addMomentAt("Fatture", 1);
  for (const std::string_view sorgente :
       {"INSERT INTO Altre VALUES (7,'05/03/24')", "INSERT INTO Fatture VALUES ('05/03/24',7)",
        "INSERT INTO Fatture (b,a) VALUES (7,'05/03/24')", "INSERT INTO Fatture VALUES (7,'05/03' & '/24')",
        "INSERT INTO Fatture VALUES (7,trim('05/03/24'))", "INSERT INTO Fatture VALUES ((7),8,'05/03/24')",
        "INSERT INTO Fatture VALUES (7,NOT '05/03/24')", "INSERT INTO Fatture SELECT 7,'05/03/24' FROM T"}) {
    Translation traduzione;
    Translate(sorgente, dizionario, traduzione);
    EXPECT_EQ(traduzione.sql.find("data_ordinabile"), std::string::npos) << sorgente;
  }
}

TEST(Dialetto, DeleteCascadeEDeleteAsterisco) {
  EXPECT_EQ(sql("Delete  cascade from T where a =1;"), "DELETE FROM [T] WHERE [a] = ? ");
  EXPECT_EQ(sql("DELETE * FROM T"), "DELETE FROM [T] ");
  EXPECT_EQ(sql("Delete  from T"), "DELETE FROM [T] ");
}

TEST(Dialetto, UnPrefissoSuColonnaIndicizzataDiventaUnIntervallo) {
  EXPECT_EQ(sql("SELECT a FROM T WHERE Codice_ean LIKE '80Z*'"),
            "SELECT [a] FROM [T] WHERE ( [Codice_ean] >= ? AND [Codice_ean] < ? AND [Codice_ean] LIKE ? ) ");
  EXPECT_EQ(parametri("SELECT a FROM T WHERE Codice_EAN LIKE '80Z*'"), "'80Z'|'80{'|'80Z*'|");
  EXPECT_EQ(sql("SELECT a FROM T WHERE T.Codice_EAN LIKE 'x*'"),
            "SELECT [a] FROM [T] WHERE ( [T] . [Codice_EAN] >= ? AND [T] . [Codice_EAN] < ? AND "
            "[T] . [Codice_EAN] LIKE ? ) ");
}

TEST(Dialetto, SenzaPrefissoOSenzaIndiceRestaIlModello) {
  EXPECT_EQ(sql("SELECT a FROM T WHERE Codice_EAN LIKE '*80'"),
            "SELECT [a] FROM [T] WHERE [Codice_EAN] LIKE ? ");
  EXPECT_EQ(sql("SELECT a FROM T WHERE Nota LIKE '80*'"), "SELECT [a] FROM [T] WHERE [Nota] LIKE ? ");
  EXPECT_EQ(sql("SELECT a FROM T WHERE Codice_EAN NOT LIKE '80*'"),
            "SELECT [a] FROM [T] WHERE [Codice_EAN] NOT LIKE ? ");
}

TEST(Dialetto, LeDateHannoIlGiornoDavanti) {
  EXPECT_EQ(parametri("SELECT a FROM T WHERE d >= #01/02/2024 00.00.00# AND d <= #31/12/2024 23:59:59#"),
            "'2024-02-01 00:00:00'|'2024-12-31 23:59:59'|");
  EXPECT_EQ(parametri("SELECT a FROM T WHERE d = #1/2/24#"), "'2024-02-01 00:00:00'|");
}

TEST(Dialetto, UnaDataImpossibileEUnErroreDiSintassi) {
  EXPECT_EQ(numero("SELECT a FROM T WHERE d = #30/02/2024#"), 3075);
  EXPECT_EQ(numero("SELECT a FROM T WHERE d = #12/31/2024#"), 3075);
}

TEST(Dialetto, LeFunzioniHannoIlLoroNomeDelMotore) {
  EXPECT_EQ(sql("SELECT FORMAT(DATE(), 'yyyymmdd'), max( a ) FROM T"),
            "SELECT formato ( oggi ( ) , ? ) , max ( [a] ) FROM [T] ");
  EXPECT_EQ(numero("SELECT load_extension('x') FROM T"), 3085);
}

TEST(Dialetto, DopoIntoUnNomeConParentesiEUnaTabella) {
  EXPECT_EQ(sql("insert into date (a) values (1)"), "INSERT INTO [date] ( [a] ) VALUES ( ? ) ");
}

TEST(Dialetto, LaECommercialeUnisceITesti) {
  EXPECT_EQ(sql("SELECT a & 'x' FROM T"), "SELECT [a] || ? FROM [T] ");
}

TEST(Dialetto, SoloBianchiDopoIlPuntoEVirgola) {
  EXPECT_EQ(sql("SELECT a FROM T; \n\t"), "SELECT [a] FROM [T] ");
  EXPECT_EQ(numero("SELECT a FROM T; x"), 3142);
  EXPECT_EQ(numero("SELECT a FROM T;;"), 3142);
  EXPECT_EQ(numero("DELETE FROM T; DROP TABLE T"), 3142);
}

TEST(Dialetto, UnApiceApertoCitaIlPezzo) {
  const QString descrizione = descriptionError([] { sql("UPDATE T SET a = 'DELL'ACQUA' WHERE b=1"); });
  EXPECT_THAT(descrizione.toStdString(), testing::HasSubstr("' WHERE b=1"));
  EXPECT_EQ(numero("UPDATE T SET a = 'DELL'ACQUA' WHERE b=1"), 3075);
}

TEST(Dialetto, CaratteriCheNonCominciamoNullaSonoErroriDiSintassi) {
  for (const char* resto : {"?", ":a", "@a", "$a", "`a`", "{", "!", "~", "\\", "^", "[a", "#1/1/2024"})
    EXPECT_EQ(numero(std::string("SELECT a FROM T WHERE b = ") + resto), 3075) << resto;
  EXPECT_EQ(numero("SELECT 5abc FROM T"), 3075);
}

TEST(Dialetto, UnaIstruzioneCominciaConUnVerboNoto) {
  for (const char* testo :
       {"", "   ", ";", "PRAGMA user_version", "VACUUM", "BEGIN", "ATTACH 'x' AS y", "'SELECT'"})
    EXPECT_EQ(numero(testo), 3075) << testo;
}

TEST(Dialetto, UnModelloConLaParentesiApertaEUnErroreDiSintassi) {
  EXPECT_EQ(numero("SELECT a FROM T WHERE Codice_EAN LIKE '[80*'"), 3075);
}

TEST(Dialetto, LaDefinizioneDiTabelleTieneIValoriAlLoroPosto) {
  EXPECT_EQ(sql("CREATE TABLE T (a TEXT DEFAULT 'l''ora')"), "CREATE TABLE T ( a TEXT DEFAULT 'l''ora' ) ");
}

TEST(Dialetto, LaStessaTraduzioneSiRiusa) {
  Translation traduzione;
  Translate("SELECT a FROM T WHERE b = 'dell''anno'", {}, traduzione);
  Translate("SELECT a FROM T WHERE b = 1", {}, traduzione);
  EXPECT_EQ(testi(traduzione), "1|");
}

}  // namespace
}  // namespace store
