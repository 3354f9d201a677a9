// What no caller words and a shop's data may hold all the same.

#include <malloc.h>
#include <sqlite3.h>

#include "platform/store/connection.h"
#include "platform/store/test_archive.h"
#include "sostegno/statements.h"

namespace {

class Resistenza : public ArchiveOfTry {
 protected:
  int descrizione(const QString& testo) {
    return numberError([&] {
      archive_.Execute(
          asWritten(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione = '%1' WHERE auto_id=1").arg(testo)));
    });
  }
  QString descrizione() { return value("SELECT Descrizione from TAB_ARTICOLI where auto_id=1"); }
  /// What the process has taken and not given back, in bytes.
  static std::size_t memoria() {
    const struct mallinfo2 conto = ::mallinfo2();
    return conto.uordblks + conto.hblkhd;
  }
};

TEST_F(Resistenza, UnByteZeroOvunqueStiaEUnErroreDiSintassi) {
  EXPECT_EQ(descrizione(QStringLiteral("AB") + QChar(0) + QStringLiteral("CD")), 3075);
  EXPECT_EQ(descrizione(), QString());
  const QString zero = QStringLiteral("DELETE FROM TAB_VARIE") + QChar(0) + QStringLiteral(" WHERE 1=0");
  EXPECT_EQ(numberError([&] { archive_.Execute(asWritten(zero)); }), 3075);
  const QString nome = QStringLiteral("DELETE FROM [TAB_VARIE") + QChar(0) + QStringLiteral("]");
  EXPECT_EQ(numberError([&] { archive_.Execute(asWritten(nome)); }), 3075);
  EXPECT_EQ(read("SELECT NomeCassa from TAB_VARIE ").RecordCount(), 1);
}

TEST_F(Resistenza, ICaratteriOltreIPrimiSessantaquattromilaTornanoIntatti) {
  const QString testo = QString::fromUtf8("CAFFÈ 😀 𝒳 €");
  EXPECT_EQ(descrizione(testo), 0);
  EXPECT_EQ(descrizione(), testo);
  EXPECT_EQ(read("SELECT auto_id FROM TAB_ARTICOLI WHERE Descrizione LIKE 'caffè ? ? €'").RecordCount(), 1);
}

TEST_F(Resistenza, IstruzioniLungheCorteEConAccentiSiSeguonoSenzaMescolarsi) {
  const QString lunga(200, QLatin1Char('x'));
  const QString ultimoAscii(QChar(0x7F));
  const QString primoOltre(QChar(0x80));
  for (const QString& testo :
       {lunga, QStringLiteral("È"), ultimoAscii, lunga, primoOltre, QStringLiteral("PANE"), QString()}) {
    EXPECT_EQ(descrizione(testo), 0);
    EXPECT_EQ(descrizione(), testo);
  }
}

TEST_F(Resistenza, UnaMetaDiCarattereDiventaUnSegnoENonRompeNulla) {
  EXPECT_EQ(descrizione(QStringLiteral("A") + QChar(0xD83D) + QStringLiteral("B")), 0);
  const QString letto = descrizione();
  EXPECT_EQ(letto.size(), 3);
  EXPECT_TRUE(letto.isValidUtf16());
  EXPECT_EQ(descrizione(QStringLiteral("C") + QChar(0xDE00)), 0);
  EXPECT_TRUE(descrizione().isValidUtf16());
}

TEST_F(Resistenza, NumeriOltreOgniMisura) {
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Prezzo = 1e400 WHERE auto_id=1"), 3075);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Prezzo = 9223372036854775808 WHERE auto_id=1"), 3421);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Prezzo = -9223372036854775808 WHERE auto_id=1"), 3421);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Prezzo = 2147483648 WHERE auto_id=1"), 3421);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Prezzo = -2147483648 WHERE auto_id=1"), 0);
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET auto_id = 'cinque' WHERE auto_id=1"), 3421);
  EXPECT_TRUE(read("SELECT Prezzo from TAB_ARTICOLI where auto_id=9223372036854775808").empty());
  EXPECT_EQ(value("SELECT Prezzo from TAB_ARTICOLI where auto_id=1"), QStringLiteral("-2147483648"));
}

TEST_F(Resistenza, UnaColonnaInteraNonTieneUnaFrazione) {
  for (const char* sql : {"UPDATE TAB_ARTICOLI SET Reparto = 5.5 WHERE auto_id=1",
                          "UPDATE TAB_ARTICOLI SET Reparto = '5.5' WHERE auto_id=1",
                          "UPDATE TAB_ARTICOLI SET Prezzo = '5.5' WHERE auto_id=1"})
    EXPECT_EQ(numberOf(sql), 3421) << sql;
  EXPECT_EQ(numberOf("UPDATE TAB_ARTICOLI SET Reparto = '7', Prezzo = 5.0 WHERE auto_id=1"), 0);
  EXPECT_EQ(value("SELECT Reparto from TAB_ARTICOLI where auto_id=1"), QStringLiteral("7"));
  EXPECT_EQ(read("SELECT Prezzo from TAB_ARTICOLI where auto_id=1").int64(0), 5);
}

TEST_F(Resistenza, UnTestoDiUnMegabyteSiFermaAllaSuaColonnaENonPrima) {
  const QString lungo(1 << 20, QLatin1Char('x'));
  EXPECT_EQ(descrizione(lungo), 3163);
  run("CREATE TABLE T (t TEXT)");
  archive_.Execute(asWritten(QStringLiteral("INSERT INTO T VALUES ('%1')").arg(lungo)));
  EXPECT_EQ(value("SELECT t FROM T"), lungo);
  EXPECT_EQ(archive_.OpenRecordset(asWritten(QStringLiteral("SELECT t FROM T WHERE t LIKE '%1*'").arg(lungo)))
                .RecordCount(),
            1);
}

TEST_F(Resistenza, UnaCondizioneDiUnMegabyteERifiutataEIlRestoFunziona) {
  QString condizione = QStringLiteral("auto_id=1");
  while (condizione.size() < (1 << 20)) condizione += QStringLiteral(" OR auto_id=1");
  EXPECT_NE(numberError([&] {
              archive_.OpenRecordset(
                  asWritten(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where ") + condizione));
            }),
            0);
  const QString parentesi(100000, QLatin1Char('('));
  EXPECT_EQ(numberError([&] {
              archive_.OpenRecordset(
                  asWritten(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where ") + parentesi));
            }),
            3075);
  EXPECT_EQ(read("SELECT auto_id from TAB_ARTICOLI").RecordCount(), 5000);
}

TEST_F(Resistenza, MoltissimeFormeDiverseNonRiempionoLaMemoria) {
  constexpr int kForme = 20000;
  // Fourteen bytes kept of each would be more.
  constexpr sqlite3_int64 kAmmessi = 1 << 18;
  constexpr std::size_t kPreparateMassime = 64;
  const auto connessione = store::OpenConnection(
      path_, std::make_shared<store::WorkspaceState>(store::WorkspaceState{clock_, store::kStatementLimit}));
  const auto forma = [](int numero) {
    return asWritten(
        QStringLiteral("SELECT auto_id AS c%1 from TAB_ARTICOLI where auto_id = %1").arg(numero));
  };
  for (int i = 0; i < 100; ++i) connessione->query(forma(i));
  const std::size_t prima = memoria();
  for (int i = 0; i < kForme; ++i) connessione->query(forma(i));
  EXPECT_LE(connessione->prepared(), kPreparateMassime);
  EXPECT_LT(memoria(), prima + kAmmessi);
}

TEST_F(Resistenza, UnaLetturaFallitaAMetaNonTrattieneLaSuaForma) {
  run("CREATE TABLE T (n INTEGER)");
  run("INSERT INTO T VALUES (1)");
  run("INSERT INTO T VALUES (-9223372036854775807 - 1)");
  EXPECT_EQ(numberOfReading("SELECT abs(n) FROM T WHERE n <> 7"), 3075);
  EXPECT_EQ(run("DELETE FROM T WHERE n < 0"), 1);
  EXPECT_EQ(read("SELECT abs(n) FROM T WHERE n <> 7").RecordCount(), 1);
  EXPECT_TRUE(read("SELECT abs(n) FROM T WHERE n <> 1").empty());
}

TEST_F(Resistenza, IValoriNonFannoUnaFormaNuova) {
  const auto connessione = store::OpenConnection(
      path_, std::make_shared<store::WorkspaceState>(store::WorkspaceState{clock_, store::kStatementLimit}));
  for (int i = 1; i <= 20; ++i)
    connessione->execute(
        asWritten(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione = 'N%1' WHERE auto_id=%1").arg(i)));
  EXPECT_EQ(connessione->prepared(), 1U);
}

}  // namespace
