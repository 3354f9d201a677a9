// Files that another program made, or somebody forged, and what they may cost this one.

#include <QDir>
#include <QElapsedTimer>

#include "platform/store/test_archive.h"
#include "sostegno/sqlite_file.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kBreve = 50ms;
/// Far beyond the short limit and far below what the work would take.
constexpr qint64 kPazienza = 1000;
const QString kTroppo = QStringLiteral("Operazione interrotta: durava oltre ogni limite.");

/// Runs `passo`, which has to end with 3059 long before it would by itself.
template <typename Passo>
void attendiInterrotto(Passo&& passo) {
  QElapsedTimer orologio;
  orologio.start();
  try {
    passo();
    ADD_FAILURE() << "it came to its end";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, 3059);
    EXPECT_EQ(errore.descrizione, kTroppo);
  }
  EXPECT_LT(orologio.elapsed(), kPazienza);
}

class Limiti : public testing::Test {
 protected:
  TemporaryFolder folder_;
  FixedClock clock_;
  store::Workspace workspace_{clock_, kBreve};
  const QString percorso_ = folder_.file(QStringLiteral("altrui.mdb"));
};

/// An archive whose articles are a view without an end, beside a table of one row.
class SenzaFine : public Limiti {
 protected:
  void SetUp() override {
    runInSqlite(percorso_, {QStringLiteral("CREATE VIEW TAB_ARTICOLI AS WITH RECURSIVE n(x) AS "
                                           "(SELECT 1 UNION ALL SELECT x + 1 FROM n) "
                                           "SELECT x AS auto_id, '' AS Codice_EAN FROM n;"
                                           "CREATE TABLE VERA (n INTEGER); INSERT INTO VERA VALUES (1);")});
    archivio_ = workspace_.OpenDatabase(percorso_);
  }
  QString vera() { return archivio_.OpenRecordset(u"SELECT n from VERA").field(0).text(); }

  store::Database archivio_;
};

TEST_F(SenzaFine, UnConteggioSiInterrompe) {
  attendiInterrotto([&] { archivio_.OpenRecordset(u"SELECT count(Codice_EAN) from TAB_ARTICOLI "); });
  EXPECT_EQ(vera(), QStringLiteral("1"));
}

TEST_F(SenzaFine, UnElencoDiRigheSiInterrompe) {
  attendiInterrotto([&] { archivio_.OpenRecordset(u"SELECT Codice_EAN from TAB_ARTICOLI "); });
}

TEST_F(SenzaFine, OgniIstruzioneHaIlSuoTempo) {
  for (int giro = 0; giro < 3; ++giro) {
    attendiInterrotto([&] { archivio_.OpenRecordset(u"SELECT count(auto_id) from TAB_ARTICOLI"); });
    EXPECT_EQ(vera(), QStringLiteral("1"));
  }
}

TEST_F(SenzaFine, UnaModificaInterrottaNonScriveNulla) {
  attendiInterrotto(
      [&] { archivio_.Execute(u"UPDATE VERA SET n = (SELECT count(auto_id) from TAB_ARTICOLI)"); });
  EXPECT_EQ(vera(), QStringLiteral("1"));
  EXPECT_EQ(archivio_.Execute(u"UPDATE VERA SET n = 2"), 1);
}

TEST_F(SenzaFine, DentroUnaTransazioneDisfaTuttoESiPuoRicominciare) {
  workspace_.BeginTrans();
  EXPECT_EQ(archivio_.Execute(u"UPDATE VERA SET n = 2"), 1);
  attendiInterrotto(
      [&] { archivio_.Execute(u"UPDATE VERA SET n = (SELECT count(auto_id) from TAB_ARTICOLI)"); });
  EXPECT_EQ(numberError([&] { workspace_.CommitDownTo(0); }), 3059);
  EXPECT_EQ(workspace_.level(), 0);
  EXPECT_EQ(vera(), QStringLiteral("1"));
  workspace_.BeginTrans();
  EXPECT_EQ(archivio_.Execute(u"UPDATE VERA SET n = 3"), 1);
  workspace_.CommitTrans();
  EXPECT_EQ(vera(), QStringLiteral("3"));
}

TEST_F(SenzaFine, IlControlloDellePagineNonNeRisente) {
  EXPECT_NO_THROW(archivio_.CheckIntegrity());
}

// Every column of dates gets a guard of its own: 3000 tables are 6000 statements, none of which lasts.
TEST_F(Limiti, UnoSchemaDiTremilaTabelleNonTrattieneLAperturaERestaComEra) {
  QString schema = QStringLiteral("BEGIN;");
  for (int i = 0; i < 3000; ++i) schema += QStringLiteral("CREATE TABLE t%1 (d DATE);").arg(i);
  runInSqlite(percorso_, {schema + QStringLiteral("COMMIT;")});
  const QByteArray prima = folder_.read(QStringLiteral("altrui.mdb"));
  attendiInterrotto([&] { workspace_.OpenDatabase(percorso_); });
  EXPECT_TRUE(folder_.read(QStringLiteral("altrui.mdb")) == prima);
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden),
            QStringList{QStringLiteral("altrui.mdb")});
}

TEST(LimitiDelProgramma, SonoVentiSecondi) {
  EXPECT_EQ(store::kStatementLimit, 20s);
}

}  // namespace
