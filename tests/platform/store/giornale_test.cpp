// An archive is one file: nothing stays beside it once it is closed.

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <cstdio>

#include "platform/store/altro_processo.h"
#include "platform/store/archivio_di_prova.h"
#include "platform/store/vfs_di_prova.h"

namespace {

class Giornale : public ArchivioDiProva {
 protected:
  static int modifica(store::Database& archivio, int prezzo = 7) {
    return numeroErrore([&] {
      archivio.Execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Prezzo = %1 WHERE auto_id=1").arg(prezzo));
    });
  }
  QString giornale() const { return percorso_ + QStringLiteral("-journal"); }
  QStringList nomi() { return QDir(cartella_.percorso()).entryList(QDir::Files | QDir::Hidden); }
  void attendiSoloLArchivio() { EXPECT_EQ(nomi(), QStringList{QStringLiteral("negozio.mdb")}); }
  QString prezzo() {
    archivio_ = area_.OpenDatabase(percorso_);
    return valore("SELECT Prezzo from TAB_ARTICOLI where auto_id=1");
  }
  /// Another archive takes the place of the open one by a plain move, as a file manager does.
  void sostituisci() {
    const QString altro = cartella_.file(QStringLiteral("altro.mdb"));
    store::CopiaArchivio(modello(), altro);
    ASSERT_EQ(std::rename(qUtf8Printable(altro), qUtf8Printable(percorso_)), 0);
  }
};

TEST_F(Giornale, DopoUnaModificaELaChiusuraRestaIlSoloArchivio) {
  EXPECT_EQ(modifica(archivio_), 0);
  ASSERT_TRUE(QFile::exists(giornale()));
  archivio_.Close();
  attendiSoloLArchivio();
  EXPECT_EQ(prezzo(), QStringLiteral("7"));
}

TEST_F(Giornale, ChiusoInMezzoAUnaTransazioneConfermaERestaIlSoloArchivio) {
  area_.BeginTrans();
  area_.BeginTrans();
  EXPECT_EQ(modifica(archivio_), 0);
  archivio_.Close();
  attendiSoloLArchivio();
  EXPECT_EQ(area_.livello(), 2);
  area_.Rollback();
  area_.Rollback();
  EXPECT_EQ(prezzo(), QStringLiteral("7"));
}

TEST_F(Giornale, AllaFineDelProgrammaUnaTransazioneApertaSiDisfaERestaIlSoloArchivio) {
  area_.BeginTrans();
  EXPECT_EQ(modifica(archivio_), 0);
  area_.Abbandona();
  attendiSoloLArchivio();
  EXPECT_EQ(prezzo(), QStringLiteral("0"));
}

TEST_F(Giornale, LUltimaCopiaLasciataAndareLoToglie) {
  EXPECT_EQ(modifica(archivio_), 0);
  archivio_ = store::Database();
  attendiSoloLArchivio();
}

TEST_F(Giornale, QuelloDiUnProgrammaUccisoSeNeVaConLaProssimaChiusura) {
  archivio_.Close();
  EXPECT_EQ(inUnAltroProcesso([&] {
              auto* area = new store::Workspace;
              auto* archivio = new store::Database(area->OpenDatabase(percorso_));
              return modifica(*archivio);
            }),
            0);
  ASSERT_TRUE(QFile::exists(giornale()));
  EXPECT_EQ(prezzo(), QStringLiteral("7"));
  archivio_.Close();
  attendiSoloLArchivio();
}

TEST_F(Giornale, LaChiusuraNonSincronizzaNulla) {
  archivio_.Close();
  VfsDiProva vfs;
  archivio_ = area_.OpenDatabase(percorso_);
  EXPECT_EQ(modifica(archivio_), 0);
  vfs.azzera();
  archivio_.Close();
  EXPECT_EQ(vfs.sincronizzazioni(), 0);
  EXPECT_EQ(vfs.operazioni(), 0);
  attendiSoloLArchivio();
}

TEST_F(Giornale, QuelloCheServeAUnAltroProgrammaResta) {
  EXPECT_EQ(modifica(archivio_), 0);
  AltroProcesso altro([&] {
    sqlite3* db = nullptr;
    return sqlite3_open(percorso_.toUtf8().constData(), &db) == SQLITE_OK &&
           sqlite3_exec(db, "BEGIN IMMEDIATE; UPDATE TAB_ARTICOLI SET Prezzo = 9 WHERE auto_id=1", nullptr,
                        nullptr, nullptr) == SQLITE_OK;
  });
  ASSERT_TRUE(altro.pronto());
  ASSERT_GT(QFile(giornale()).size(), 0);
  archivio_.Close();
  EXPECT_GT(QFile(giornale()).size(), 0);
  altro.uccidi();
  EXPECT_EQ(prezzo(), QStringLiteral("7"));
  archivio_.Close();
  attendiSoloLArchivio();
}

TEST_F(Giornale, QuelloDelSecondoHandleInTransazioneResta) {
  store::Workspace altra;
  store::Database secondo = altra.OpenDatabase(percorso_);
  altra.BeginTrans();
  EXPECT_EQ(modifica(secondo), 0);
  archivio_.Close();
  EXPECT_TRUE(QFile::exists(giornale()));
  altra.Rollback();
  secondo.Close();
  attendiSoloLArchivio();
  EXPECT_EQ(prezzo(), QStringLiteral("0"));
}

TEST_F(Giornale, IlNuovoSopraUnArchivioApertoNonNeEreditaIlGiornale) {
  EXPECT_EQ(modifica(archivio_), 0);
  store::CopiaArchivio(modello(), percorso_);
  attendiSoloLArchivio();
}

TEST_F(Giornale, LArchivioSostituitoSottoLHandleNonPerdeModificheInSilenzio) {
  EXPECT_EQ(modifica(archivio_), 0);
  sostituisci();
  EXPECT_EQ(modifica(archivio_, 8), 3073);
  area_.BeginTrans();
  EXPECT_EQ(modifica(archivio_, 8), 3073);
  area_.Rollback();
  EXPECT_EQ(valore("SELECT Prezzo from TAB_ARTICOLI where auto_id=1"), QStringLiteral("7"));
  archivio_.Close();
  EXPECT_EQ(prezzo(), QStringLiteral("0"));
}

TEST_F(Giornale, QuelloDellArchivioCheHaPresoIlSuoPostoResta) {
  EXPECT_EQ(modifica(archivio_), 0);
  sostituisci();
  cartella_.scrivi(QStringLiteral("negozio.mdb-journal"), "di un altro");
  archivio_.Close();
  EXPECT_EQ(cartella_.leggi(QStringLiteral("negozio.mdb-journal")), QByteArray("di un altro"));
}

}  // namespace
