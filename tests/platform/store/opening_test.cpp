#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include "platform/store/other_process.h"
#include "platform/store/test_archive.h"
#include "sostegno/sqlite_file.h"

namespace {

constexpr unsigned kNessuno = 65534;

/// Nothing stops root: the access rules are tested as somebody else.
void diventaNessuno() {
  if (::geteuid() != 0) return;
  if (::setgid(kNessuno) != 0 || ::setuid(kNessuno) != 0) ::_exit(1);
}

bool tieni(const QString& percorso, const char* blocco) {
  sqlite3* db = nullptr;
  return sqlite3_open(percorso.toUtf8().constData(), &db) == SQLITE_OK &&
         sqlite3_exec(db, blocco, nullptr, nullptr, nullptr) == SQLITE_OK;
}

class Apertura : public ArchiveOfTry {
 protected:
  int apri(const QString& percorso) {
    return numberError([&] { workspace_.OpenDatabase(percorso); });
  }
  static int modifica(store::Database& archivio) {
    return numberError([&] { archivio.Execute(u"UPDATE TAB_ARTICOLI SET Prezzo = 1 WHERE auto_id=1"); });
  }
  void permessi(const QString& percorso, mode_t modo) {
    ASSERT_EQ(::chmod(percorso.toUtf8().constData(), modo), 0);
  }
};

TEST_F(Apertura, UnFileAssenteNonVieneCreato) {
  const QString assente = folder_.file(QStringLiteral("assente.mdb"));
  EXPECT_EQ(apri(assente), 3024);
  EXPECT_EQ(apri(QString()), 3024);
  EXPECT_FALSE(QFile::exists(assente));
}

TEST_F(Apertura, UnFileDiTestoNonEUnDatabase) {
  EXPECT_EQ(apri(folder_.write(QStringLiteral("testo.mdb"), "Ciao")), 3343);
  EXPECT_EQ(apri(folder_.write(QStringLiteral("lungo.mdb"), QByteArray(100000, 'x'))), 3343);
}

TEST_F(Apertura, UnFileVuotoRestaVuoto) {
  const QString vuoto = folder_.write(QStringLiteral("vuoto.mdb"), {});
  EXPECT_EQ(apri(vuoto), 3343);
  EXPECT_EQ(QFile(vuoto).size(), 0);
}

TEST_F(Apertura, UnaCartellaNonSiApre) {
  EXPECT_EQ(apri(folder_.path()), 75);
}

TEST_F(Apertura, UnDatabaseDiAltroGenereSiApreEMancaLaTabella) {
  const QString altro = folder_.file(QStringLiteral("altro.mdb"));
  runInSqlite(altro, {QStringLiteral("CREATE TABLE altra (a)")});
  store::Database aperto = workspace_.OpenDatabase(altro);
  EXPECT_EQ(numberError([&] { aperto.OpenRecordset(u"SELECT Codice_EAN from TAB_ARTICOLI "); }), 3078);
}

// What other programs keep in their databases must not keep this one from opening them.
TEST_F(Apertura, UnDatabaseConTabelleDiUnModuloIgnotoSiApre) {
  const QString altro = folder_.file(QStringLiteral("altro.mdb"));
  runInSqlite(altro, {QStringLiteral("CREATE TABLE altra (a DATE PRIMARY KEY) WITHOUT ROWID"),
                      QStringLiteral("CREATE VIEW vista AS SELECT a FROM altra"),
                      QStringLiteral("PRAGMA writable_schema = ON"),
                      QStringLiteral("INSERT INTO sqlite_master VALUES ('table','v','v',0,"
                                     "'CREATE VIRTUAL TABLE v USING modulo_ignoto(a DATE)')")});
  store::Database aperto = workspace_.OpenDatabase(altro);
  EXPECT_TRUE(aperto.OpenRecordset(u"SELECT a FROM altra").empty());
  EXPECT_EQ(numberError([&] { aperto.OpenRecordset(u"SELECT Codice_EAN from TAB_ARTICOLI "); }), 3078);
}

TEST_F(Apertura, UnDatabaseConITestiADueByteSiLeggeConLeStesseFunzioni) {
  const QString altro = folder_.file(QStringLiteral("altro.mdb"));
  runInSqlite(altro, {QStringLiteral("PRAGMA encoding = 'UTF-16le'"),
                      QStringLiteral("CREATE TABLE altra (nome TEXT, quando DATE)"),
                      QStringLiteral("INSERT INTO altra VALUES ('Caffè di Malta', '2026-03-14 20:40:00')"),
                      QStringLiteral("INSERT INTO altra VALUES ('Pane', '2026-03-15 08:00:00')")});
  store::Database aperto = workspace_.OpenDatabase(altro);
  const store::Recordset trovati =
      aperto.OpenRecordset(u"SELECT nome, FORMAT(quando,'dd/mm/yyyy') FROM altra WHERE nome like '*FÈ DI*'");
  ASSERT_EQ(trovati.RecordCount(), 1);
  EXPECT_EQ(trovati.text(0), QStringLiteral("Caffè di Malta"));
  EXPECT_EQ(trovati.text(1), QStringLiteral("14/03/2026"));
}

TEST_F(Apertura, IlNomePuoAvereAccentiEBianchi) {
  const QString strano = folder_.file(QStringLiteral("caffè & più 100%?#.mdb"));
  store::CopyArchive(pattern(), strano);
  store::Database aperto = workspace_.OpenDatabase(strano);
  EXPECT_EQ(aperto.path(), strano);
  EXPECT_EQ(modifica(aperto), 0);
}

TEST_F(Apertura, UnPercorsoRelativoRestaQuelloAncheSeLaCartellaCambia) {
  store::Database aperto = workspace_.OpenDatabase(QStringLiteral("negozio.mdb"));
  ASSERT_TRUE(QDir::setCurrent(QDir::rootPath()));
  EXPECT_EQ(modifica(aperto), 0);
}

TEST_F(Apertura, UnArchivioInManoAUnAltroProgrammaEBloccatoSubito) {
  archive_.Close();
  OtherProcess altro([&] { return tieni(path_, "BEGIN EXCLUSIVE"); });
  ASSERT_TRUE(altro.ready());
  QElapsedTimer orologio;
  orologio.start();
  EXPECT_EQ(apri(path_), 3260);
  EXPECT_LT(orologio.elapsed(), 2000);
}

TEST_F(Apertura, UnAltroProgrammaCheScriveBloccaLeModificheENonLeLetture) {
  OtherProcess altro([&] { return tieni(path_, "BEGIN IMMEDIATE"); });
  ASSERT_TRUE(altro.ready());
  EXPECT_EQ(modifica(archive_), 3260);
  EXPECT_EQ(read("SELECT auto_id from TAB_ARTICOLI").RecordCount(), 5000);
  workspace_.BeginTrans();
  EXPECT_EQ(modifica(archive_), 3260);
  workspace_.Rollback();
}

TEST_F(Apertura, UnArchivioCheNonSiPuoScrivereSiApreInSolaLettura) {
  archive_.Close();
  permessi(folder_.path(), 0755);
  permessi(path_, 0444);
  EXPECT_EQ(inOneOtherProcess([&] {
              diventaNessuno();
              store::Workspace area;
              store::Database archivio = area.OpenDatabase(path_);
              if (archivio.OpenRecordset(u"SELECT auto_id from TAB_ARTICOLI").RecordCount() != 5000) return 1;
              return modifica(archivio);
            }),
            3073);
}

TEST_F(Apertura, InUnaCartellaCheNonSiPuoScrivereLeModificheNonPassano) {
  archive_.Close();
  QFile::remove(path_ + QStringLiteral("-journal"));
  permessi(path_, 0666);
  permessi(folder_.path(), 0555);
  EXPECT_EQ(inOneOtherProcess([&] {
              diventaNessuno();
              store::Workspace area;
              store::Database archivio = area.OpenDatabase(path_);
              return modifica(archivio);
            }),
            3073);
  permessi(folder_.path(), 0755);
}

TEST_F(Apertura, UnFileCheNonSiPuoLeggere) {
  archive_.Close();
  permessi(folder_.path(), 0755);
  permessi(path_, 0200);
  EXPECT_EQ(inOneOtherProcess([&] {
              diventaNessuno();
              store::Workspace area;
              return numberError([&] { area.OpenDatabase(path_); });
            }),
            75);
}

TEST_F(Apertura, DueVolteLoStessoArchivioNellaStessaArea) {
  store::Database secondo = workspace_.OpenDatabase(path_);
  EXPECT_EQ(modifica(secondo), 0);
  secondo.Close();
  EXPECT_EQ(read("SELECT Prezzo from TAB_ARTICOLI where auto_id=1").int64(0), 1);
}

}  // namespace
