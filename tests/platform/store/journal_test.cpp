// An archive is one file: nothing stays beside it once it is closed.

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <cstdio>

#include "platform/store/other_process.h"
#include "platform/store/test_archive.h"
#include "platform/store/test_vfs.h"
#include "sostegno/statements.h"

namespace {

class Giornale : public ArchiveOfTry {
 protected:
  static int modifica(store::Database& archivio, int prezzo = 7) {
    return numberError([&] {
      archivio.Execute(
          asWritten(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo = %1 WHERE auto_id=1").arg(prezzo)));
    });
  }
  QString journal() const { return path_ + QStringLiteral("-journal"); }
  QStringList nomi() { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }
  void attendiSoloLArchivio() { EXPECT_EQ(nomi(), QStringList{QStringLiteral("negozio.mdb")}); }
  QString prezzo() {
    archive_ = workspace_.OpenDatabase(path_);
    return value("SELECT Prezzo from TAB_ARTICOLI where auto_id=1");
  }
  /// Another archive takes the place of the open one by a plain move, as a file manager does.
  void sostituisci() {
    const QString altro = folder_.file(QStringLiteral("altro.mdb"));
    store::CopyArchive(pattern(), altro);
    ASSERT_EQ(std::rename(qUtf8Printable(altro), qUtf8Printable(path_)), 0);
  }
};

TEST_F(Giornale, DopoUnaModificaELaChiusuraRestaIlSoloArchivio) {
  EXPECT_EQ(modifica(archive_), 0);
  ASSERT_TRUE(QFile::exists(journal()));
  archive_.Close();
  attendiSoloLArchivio();
  EXPECT_EQ(prezzo(), QStringLiteral("7"));
}

TEST_F(Giornale, ChiusoInMezzoAUnaTransazioneConfermaERestaIlSoloArchivio) {
  workspace_.BeginTrans();
  workspace_.BeginTrans();
  EXPECT_EQ(modifica(archive_), 0);
  archive_.Close();
  attendiSoloLArchivio();
  EXPECT_EQ(workspace_.level(), 2);
  workspace_.Rollback();
  workspace_.Rollback();
  EXPECT_EQ(prezzo(), QStringLiteral("7"));
}

TEST_F(Giornale, AllaFineDelProgrammaUnaTransazioneApertaSiDisfaERestaIlSoloArchivio) {
  workspace_.BeginTrans();
  EXPECT_EQ(modifica(archive_), 0);
  workspace_.Abandon();
  attendiSoloLArchivio();
  EXPECT_EQ(prezzo(), QStringLiteral("0"));
}

TEST_F(Giornale, LUltimaCopiaLasciataAndareLoToglie) {
  EXPECT_EQ(modifica(archive_), 0);
  archive_ = store::Database();
  attendiSoloLArchivio();
}

TEST_F(Giornale, QuelloDiUnProgrammaUccisoSeNeVaConLaProssimaChiusura) {
  archive_.Close();
  EXPECT_EQ(inOneOtherProcess([&] {
              auto* area = new store::Workspace;
              auto* archivio = new store::Database(area->OpenDatabase(path_));
              return modifica(*archivio);
            }),
            0);
  ASSERT_TRUE(QFile::exists(journal()));
  EXPECT_EQ(prezzo(), QStringLiteral("7"));
  archive_.Close();
  attendiSoloLArchivio();
}

TEST_F(Giornale, LaChiusuraNonSincronizzaNulla) {
  archive_.Close();
  VfsOfTry vfs;
  archive_ = workspace_.OpenDatabase(path_);
  EXPECT_EQ(modifica(archive_), 0);
  vfs.clear();
  archive_.Close();
  EXPECT_EQ(vfs.sincronizzazioni(), 0);
  EXPECT_EQ(vfs.operazioni(), 0);
  attendiSoloLArchivio();
}

TEST_F(Giornale, QuelloCheServeAUnAltroProgrammaResta) {
  EXPECT_EQ(modifica(archive_), 0);
  OtherProcess altro([&] {
    sqlite3* db = nullptr;
    return sqlite3_open(path_.toUtf8().constData(), &db) == SQLITE_OK &&
           sqlite3_exec(db, "BEGIN IMMEDIATE; UPDATE TAB_ARTICOLI SET Prezzo = 9 WHERE auto_id=1", nullptr,
                        nullptr, nullptr) == SQLITE_OK;
  });
  ASSERT_TRUE(altro.ready());
  ASSERT_GT(QFile(journal()).size(), 0);
  archive_.Close();
  EXPECT_GT(QFile(journal()).size(), 0);
  altro.uccidi();
  EXPECT_EQ(prezzo(), QStringLiteral("7"));
  archive_.Close();
  attendiSoloLArchivio();
}

TEST_F(Giornale, QuelloDelSecondoHandleInTransazioneResta) {
  store::Workspace altra;
  store::Database secondo = altra.OpenDatabase(path_);
  altra.BeginTrans();
  EXPECT_EQ(modifica(secondo), 0);
  archive_.Close();
  EXPECT_TRUE(QFile::exists(journal()));
  altra.Rollback();
  secondo.Close();
  attendiSoloLArchivio();
  EXPECT_EQ(prezzo(), QStringLiteral("0"));
}

TEST_F(Giornale, IlNuovoSopraUnArchivioApertoNonNeEreditaIlGiornale) {
  EXPECT_EQ(modifica(archive_), 0);
  store::CopyArchive(pattern(), path_);
  attendiSoloLArchivio();
}

TEST_F(Giornale, LArchivioSostituitoSottoLHandleNonPerdeModificheInSilenzio) {
  EXPECT_EQ(modifica(archive_), 0);
  sostituisci();
  EXPECT_EQ(modifica(archive_, 8), 3073);
  workspace_.BeginTrans();
  EXPECT_EQ(modifica(archive_, 8), 3073);
  workspace_.Rollback();
  EXPECT_EQ(value("SELECT Prezzo from TAB_ARTICOLI where auto_id=1"), QStringLiteral("7"));
  archive_.Close();
  EXPECT_EQ(prezzo(), QStringLiteral("0"));
}

TEST_F(Giornale, QuelloDellArchivioCheHaPresoIlSuoPostoResta) {
  EXPECT_EQ(modifica(archive_), 0);
  sostituisci();
  folder_.write(QStringLiteral("negozio.mdb-journal"), "di un altro");
  archive_.Close();
  EXPECT_EQ(folder_.read(QStringLiteral("negozio.mdb-journal")), QByteArray("di un altro"));
}

}  // namespace
