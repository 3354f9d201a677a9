// Databases that another program keeps with a log of its own beside them.

#include <sqlite3.h>

#include <QDir>
#include <QFile>

#include "platform/store/engine.h"
#include "platform/store/other_process.h"
#include "platform/store/test_archive.h"

namespace {

const QString kAltrui = QStringLiteral("altrui.db");
const QString kLog = QStringLiteral("altrui.db-wal");

/// A row in the file, a further one in the log alone. The index beside them is the engines' shared memory: it
/// holds nothing of the data, and every reader marks it.
constexpr char kScrive[] =
    "PRAGMA journal_mode = WAL;"
    "PRAGMA wal_autocheckpoint = 0;"
    "CREATE TABLE rubrica (nome TEXT);"
    "INSERT INTO rubrica VALUES ('Ada');"
    "PRAGMA wal_checkpoint(TRUNCATE);"
    "INSERT INTO rubrica VALUES ('Bice');";

bool lavora(const QString& percorso, const char* istruzioni) {
  sqlite3* db = nullptr;
  return sqlite3_open(percorso.toUtf8().constData(), &db) == SQLITE_OK &&
         sqlite3_exec(db, istruzioni, nullptr, nullptr, nullptr) == SQLITE_OK;
}

class LogAltrui : public testing::Test {
 protected:
  QByteArray byte(const QString& nome) const { return folder_.read(nome); }
  QStringList nomi() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
  /// The other program has gone without a word; its log stands beside its database.
  void lasciatoAMeta() {
    OtherProcess altro([&] { return lavora(percorso_, kScrive); });
    ASSERT_TRUE(altro.ready());
    altro.uccidi();
    ricorda();
  }
  void ricorda() {
    file_ = byte(kAltrui);
    log_ = byte(kLog);
    ASSERT_FALSE(log_.isEmpty());
    nomi_ = nomi();
  }
  void attendiIntatto() const {
    EXPECT_TRUE(byte(kAltrui) == file_);
    EXPECT_TRUE(byte(kLog) == log_);
    EXPECT_EQ(nomi(), nomi_);
  }
  /// The template in the database's place, as an archive.
  int sostituito() {
    return numberError([&] { store::CopyArchive(QStringLiteral(GESTIONALE_APP "/QzDB.bck"), percorso_); });
  }
  void attendiIlModello() {
    EXPECT_EQ(nomi(), QStringList{kAltrui});
    store::Database nuovo = workspace_.OpenDatabase(percorso_);
    EXPECT_EQ(nuovo.OpenRecordset(u"SELECT Codice_EAN from TAB_ARTICOLI ").RecordCount(), 5000);
    EXPECT_EQ(numberError([&] { nuovo.OpenRecordset(u"SELECT nome FROM rubrica"); }), 3078);
  }
  /// What the other program finds when it comes back.
  QString rubrica() const {
    store::PrepareEngine();
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open(percorso_.toUtf8().constData(), &db), SQLITE_OK);
    QString trovati;
    const auto prendi = [](void* testo, int, char** valori, char**) {
      *static_cast<QString*>(testo) += QString::fromUtf8(valori[0]) + u' ';
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(db, "SELECT nome FROM rubrica ORDER BY nome", prendi, &trovati, nullptr),
              SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(db, "PRAGMA journal_mode", prendi, &trovati, nullptr), SQLITE_OK);
    sqlite3_close(db);
    return trovati;
  }

  TemporaryFolder folder_;
  store::Workspace workspace_;
  const QString percorso_ = folder_.file(kAltrui);
  QByteArray file_;
  QByteArray log_;
  QStringList nomi_;
};

TEST_F(LogAltrui, ApertoEChiusoRestaByteAByte) {
  lasciatoAMeta();
  store::Database aperto = workspace_.OpenDatabase(percorso_);
  EXPECT_EQ(aperto.OpenRecordset(u"SELECT nome FROM rubrica").RecordCount(), 2);
  aperto.Close();
  attendiIntatto();
  EXPECT_EQ(rubrica(), QStringLiteral("Ada Bice wal "));
}

TEST_F(LogAltrui, RifiutatoPerLaTabellaCheMancaRestaByteAByte) {
  lasciatoAMeta();
  store::Database aperto = workspace_.OpenDatabase(percorso_);
  workspace_.BeginTrans();
  EXPECT_EQ(numberError([&] { aperto.OpenRecordset(u"SELECT Codice_EAN from TAB_ARTICOLI "); }), 3078);
  EXPECT_EQ(numberError([&] { aperto.Execute(u"UPDATE TAB_ARTICOLI SET Prezzo = 1"); }), 3078);
  workspace_.CommitDownTo(0);
  aperto.CheckIntegrity();
  aperto.Close();
  attendiIntatto();
}

TEST_F(LogAltrui, AllaFineDelProgrammaRestaByteAByte) {
  lasciatoAMeta();
  store::Database aperto = workspace_.OpenDatabase(percorso_);
  EXPECT_EQ(aperto.OpenRecordset(u"SELECT nome FROM rubrica").RecordCount(), 2);
  workspace_.Abandon();
  EXPECT_FALSE(aperto.isOpen());
  attendiIntatto();
}

TEST_F(LogAltrui, MentreLAltroProgrammaLavoraRestaByteAByte) {
  OtherProcess altro([&] { return lavora(percorso_, kScrive); });
  ASSERT_TRUE(altro.ready());
  ricorda();
  store::Database aperto = workspace_.OpenDatabase(percorso_);
  EXPECT_EQ(aperto.OpenRecordset(u"SELECT nome FROM rubrica").RecordCount(), 2);
  aperto.Close();
  attendiIntatto();
}

TEST_F(LogAltrui, RifiutatoPoicheBloccatoRestaByteAByte) {
  OtherProcess altro(
      [&] { return lavora(percorso_, (std::string("PRAGMA locking_mode = EXCLUSIVE;") + kScrive).c_str()); });
  ASSERT_TRUE(altro.ready());
  ricorda();
  EXPECT_EQ(numberError([&] { workspace_.OpenDatabase(percorso_); }), 3260);
  attendiIntatto();
}

TEST_F(LogAltrui, SenzaUnLogDaTenereNonNeRestaNessuno) {
  {
    OtherProcess altro([&] { return lavora(percorso_, kScrive); });
    ASSERT_TRUE(altro.ready());
  }
  ASSERT_EQ(rubrica(), QStringLiteral("Ada Bice wal "));
  file_ = byte(kAltrui);
  ASSERT_EQ(nomi(), QStringList{kAltrui});
  store::Database aperto = workspace_.OpenDatabase(percorso_);
  EXPECT_EQ(aperto.OpenRecordset(u"SELECT nome FROM rubrica").RecordCount(), 2);
  aperto.Close();
  EXPECT_TRUE(byte(kAltrui) == file_);
  EXPECT_EQ(nomi(), QStringList{kAltrui});
}

// Read into the file that stands in its database's place, the log would make it the old one again.
TEST_F(LogAltrui, DiUnProgrammaUccisoNonPassaAlModelloCheNePrendeIlPosto) {
  lasciatoAMeta();
  EXPECT_EQ(sostituito(), 0);
  attendiIlModello();
}

TEST_F(LogAltrui, RimastoSenzaIlSuoDatabaseNonPassaAlModello) {
  lasciatoAMeta();
  ASSERT_TRUE(QFile::remove(percorso_));
  EXPECT_EQ(sostituito(), 0);
  attendiIlModello();
}

TEST_F(LogAltrui, AccantoACioCheNonEUnDatabaseNonPassaAlModello) {
  lasciatoAMeta();
  folder_.write(kAltrui, "lettera");
  EXPECT_EQ(sostituito(), 0);
  attendiIlModello();
}

TEST_F(LogAltrui, MentreLAltroProgrammaLavoraIlModelloNonNePrendeIlPosto) {
  OtherProcess altro([&] { return lavora(percorso_, kScrive); });
  ASSERT_TRUE(altro.ready());
  ricorda();
  EXPECT_EQ(sostituito(), 70);
  attendiIntatto();
}

}  // namespace
