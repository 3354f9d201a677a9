#include <sqlite3.h>
#include <sys/resource.h>

#include <QFile>
#include <csignal>

#include "platform/store/other_process.h"
#include "platform/store/test_archive.h"
#include "platform/store/test_vfs.h"
#include "sostegno/sqlite_file.h"
#include "sostegno/statements.h"

namespace {

/// Syncs of one transaction: the journal twice, its folder with the first, the file, and the journal's end.
constexpr int kSincronizzazioni = 4;
/// Far enough from each other to stand on pages of their own.
constexpr int kPassoCaselle = 1250;
constexpr int kRigheTransazione = 4;

class Durata : public ArchiveOfTry {
 protected:
  Durata() { archive_.Close(); }

  static QString modificaDi(int casella) {
    return QStringLiteral(
               "UPDATE TAB_ARTICOLI SET Codice_EAN = '80%1', Descrizione = 'ARTICOLO DOPO', Prezzo = 7 WHERE "
               "auto_id=%1")
        .arg(casella);
  }
  static void modifica(store::Workspace& area, store::Database& archivio) {
    area.BeginTrans();
    for (int casella = 1; casella <= kRigheTransazione; ++casella)
      archivio.Execute(asWritten(modificaDi(casella * kPassoCaselle)));
    area.CommitTrans();
  }
  /// Rows that bear the new price: all or none, whatever happened.
  int righeModificate() {
    store::Workspace area;
    store::Database archivio = area.OpenDatabase(path_);
    EXPECT_EQ(archivio.OpenRecordset(u"SELECT auto_id from TAB_ARTICOLI").RecordCount(), caselle_);
    return archivio.OpenRecordset(u"SELECT auto_id from TAB_ARTICOLI where Prezzo = 7").RecordCount();
  }
  bool integro() {
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open(path_.toUtf8().constData(), &db), SQLITE_OK);
    bool bene = false;
    const auto guarda = [](void* esito, int, char** testo, char**) {
      *static_cast<bool*>(esito) = std::string(testo[0]) == "ok";
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(db, "PRAGMA integrity_check", guarda, &bene, nullptr), SQLITE_OK);
    sqlite3_close(db);
    return bene;
  }
  /// The archive as it was, for a test that looks all through it after each of many blows: with every tenth
  /// slot.
  void ricomincia() {
    const QString decimo = folder_.file(QStringLiteral("decimo.mdb"));
    if (!QFile::exists(decimo)) {
      store::CopyArchive(pattern(), decimo);
      runInSqlite(decimo, {QStringLiteral("DELETE FROM TAB_ARTICOLI WHERE auto_id % 10 <> 0"),
                           QStringLiteral("VACUUM")});
    }
    store::CopyArchive(decimo, path_);
    caselle_ = 500;
  }

  int caselle_ = 5000;
};

TEST_F(Durata, UnaRigaECinquantamilaCostanoLeStesseSincronizzazioni) {
  VfsOfTry vfs;
  archive_ = workspace_.OpenDatabase(path_);
  run("UPDATE TAB_ARTICOLI SET Prezzo = 1 WHERE auto_id=1");
  vfs.clear();
  run("UPDATE TAB_ARTICOLI SET Prezzo = 2 WHERE auto_id=1");
  EXPECT_EQ(vfs.sincronizzazioni(), kSincronizzazioni);
  vfs.clear();
  workspace_.BeginTrans();
  for (int riga = 0; riga < 50000; ++riga)
    archive_.Execute(asWritten(
        QStringLiteral(
            "INSERT INTO TAB_VENDUTO VALUES ('20240305',%1,'ART%1','EAN%1','ARTICOLO NUMERO %1',%1,0,1)")
            .arg(riga)));
  EXPECT_EQ(vfs.sincronizzazioni(), 0);
  workspace_.CommitTrans();
  EXPECT_EQ(vfs.sincronizzazioni(), kSincronizzazioni);
  archive_.Close();
}

TEST_F(Durata, UnProgrammaUccisoAMetaLasciaLoStatoDiPrima) {
  OtherProcess altro([&] {
    auto* area = new store::Workspace;
    auto* archivio = new store::Database(area->OpenDatabase(path_));
    area->BeginTrans();
    for (int casella = 1; casella <= 5000; ++casella) archivio->Execute(asWritten(modificaDi(casella)));
    return true;
  });
  ASSERT_TRUE(altro.ready());
  altro.uccidi();
  EXPECT_EQ(righeModificate(), 0);
  EXPECT_TRUE(integro());
}

// The program is killed before each of its writes and syncs in turn.
TEST_F(Durata, UccisoAOgniScritturaLasciaPrimaODopoEMaiUnaParte) {
  int colpo = 0;
  int dopo = 0;
  for (bool finito = false; !finito;) {
    ricomincia();
    ++colpo;
    finito = inOneOtherProcess([&] {
               VfsOfTry vfs;
               vfs.before([&](int numero) { return numero == colpo ? ::kill(::getpid(), SIGKILL) : 0; });
               store::Workspace area;
               store::Database archivio = area.OpenDatabase(path_);
               modifica(area, archivio);
               archivio.Close();
               return 1;
             }) == 1;
    const int righe = righeModificate();
    ASSERT_TRUE(righe == 0 || righe == kRigheTransazione) << "write " << colpo << ", rows " << righe;
    ASSERT_TRUE(integro()) << colpo;
    if (righe != 0) ++dopo;
  }
  EXPECT_GT(colpo, 20);
  EXPECT_GE(dopo, 1);
}

// A disk that fills up undoes the transaction by itself. A caller that goes on all the same must not have its
// later lines committed one by one.
class Guasto : public Durata, public testing::WithParamInterface<int> {
 protected:
  /// Updates that failed with a number.
  int modificaSenzaFermarsi(int numeroAtteso) {
    int falliti = 0;
    for (int casella = 1; casella <= kRigheTransazione; ++casella) {
      const int numero =
          numberError([&] { archive_.Execute(asWritten(modificaDi(casella * kPassoCaselle))); });
      EXPECT_TRUE(numero == 0 || numero == numeroAtteso) << numero;
      if (numero != 0) ++falliti;
    }
    return falliti;
  }
};

TEST_P(Guasto, AOgniScritturaCheFallisceNonRestaUnaParte) {
  const int numeroAtteso = GetParam() == SQLITE_FULL ? 61 : 3043;
  int passati = 0;
  for (int colpo = 1; passati == 0; ++colpo) {
    ASSERT_LT(colpo, 2000);
    ricomincia();
    VfsOfTry vfs;
    store::Workspace area;
    archive_ = area.OpenDatabase(path_);
    vfs.clear();
    vfs.before([&](int numero) { return numero == colpo ? GetParam() : SQLITE_OK; });
    area.BeginTrans();
    int falliti = modificaSenzaFermarsi(numeroAtteso);
    const bool disfatta = falliti > 0;
    const int conferma = numberError([&] { area.CommitTrans(); });
    vfs.before({});
    if (conferma != 0) {
      EXPECT_EQ(conferma, numeroAtteso);
      EXPECT_EQ(area.level(), 1);
      EXPECT_EQ(numberError([&] { archive_.Execute(asWritten(modificaDi(16))); }), numeroAtteso);
      EXPECT_EQ(numberError([&] { area.Rollback(); }), 0);
      EXPECT_EQ(area.level(), 0);
    } else if (!disfatta) {
      ++passati;
    }
    archive_.Close();
    const int righe = righeModificate();
    if (conferma == 0) {
      ASSERT_EQ(righe, kRigheTransazione - falliti) << colpo;
    } else {
      ASSERT_TRUE(righe == 0) << "write " << colpo << ", rows " << righe;
    }
    ASSERT_TRUE(integro()) << colpo;
  }
}

// The disk goes at one write and does not come back before the program has let the archive go. Whoever opens
// it next must still find the journal that he needs.
TEST_P(Guasto, UnDiscoGuastoFinoAllaChiusuraLasciaPrimaODopoEMaiUnaParte) {
  int dopo = 0;
  bool fallito = true;
  for (int colpo = 1; fallito; ++colpo) {
    ASSERT_LT(colpo, 2000);
    ricomincia();
    VfsOfTry vfs;
    store::Workspace area;
    archive_ = area.OpenDatabase(path_);
    vfs.clear();
    vfs.before([&](int numero) { return numero >= colpo ? GetParam() : SQLITE_OK; });
    area.BeginTrans();
    fallito = modificaSenzaFermarsi(GetParam() == SQLITE_FULL ? 61 : 3043) > 0;
    // Odd turns commit, even ones leave it to the closing.
    if (colpo % 2 != 0) fallito = numberError([&] { area.CommitTrans(); }) != 0 || fallito;
    fallito = numberError([&] { archive_.Close(); }) != 0 || fallito;
    vfs.before({});
    const int righe = righeModificate();
    ASSERT_TRUE(righe == 0 || righe == kRigheTransazione) << "write " << colpo << ", rows " << righe;
    ASSERT_TRUE(integro()) << colpo;
    if (righe != 0) ++dopo;
  }
  EXPECT_GE(dopo, 1);
}

INSTANTIATE_TEST_SUITE_P(Motivi, Guasto, testing::Values(SQLITE_FULL, SQLITE_IOERR_WRITE));

TEST_F(Durata, DopoUnAnnullamentoDelMotoreLaFineDelComandoLoDiceESiRiparteDaCapo) {
  VfsOfTry vfs;
  archive_ = workspace_.OpenDatabase(path_);
  workspace_.BeginTrans();
  vfs.before([](int) { return SQLITE_FULL; });
  EXPECT_EQ(numberError([&] {
              archive_.Execute(asWritten(modificaDi(1)));
              workspace_.CommitTrans();
            }),
            61);
  vfs.before({});
  EXPECT_EQ(numberError([&] { workspace_.CommitDownTo(0); }), 61);
  workspace_.BeginTrans();
  EXPECT_EQ(workspace_.level(), 1);
  archive_.Execute(asWritten(modificaDi(2)));
  workspace_.CommitTrans();
  archive_.Close();
  EXPECT_EQ(righeModificate(), 1);
}

TEST_F(Durata, ConIlDiscoPienoLaModificaFallisceConIlSuoNumero) {
  EXPECT_EQ(inOneOtherProcess([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              store::Workspace area;
              store::Database archivio = area.OpenDatabase(path_);
              const rlimit limite{100000, 100000};
              if (::setrlimit(RLIMIT_FSIZE, &limite) != 0) return 1;
              return numberError([&] {
                area.BeginTrans();
                for (int casella = 1; casella <= 5000; ++casella)
                  archivio.Execute(asWritten(modificaDi(casella)));
                area.CommitTrans();
              });
            }),
            61);
  EXPECT_EQ(righeModificate(), 0);
  EXPECT_TRUE(integro());
}

}  // namespace
