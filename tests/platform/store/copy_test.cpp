#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <csignal>

#include "platform/store/other_process.h"
#include "platform/store/test_archive.h"

namespace {

class Copia : public ArchiveOfTry {
 protected:
  int copia(const QString& da, const QString& a) {
    return numberError([&] { store::CopyArchive(da, a); });
  }
  QByteArray byte(const QString& percorso) {
    QFile file(percorso);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }
  QStringList nomi() { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }
};

TEST_F(Copia, PortaOgniByteDelModello) {
  const QString nuovo = folder_.file(QStringLiteral("nuovo.mdb"));
  EXPECT_EQ(copia(pattern(), nuovo), 0);
  EXPECT_EQ(byte(nuovo), byte(pattern()));
}

TEST_F(Copia, SenzaSorgenteIlBersaglioRestaComEra) {
  const QString vecchio = folder_.write(QStringLiteral("vecchio.mdb"), "prima");
  EXPECT_EQ(copia(folder_.file(QStringLiteral("assente.bck")), vecchio), 53);
  EXPECT_EQ(folder_.read(QStringLiteral("vecchio.mdb")), QByteArray("prima"));
}

TEST_F(Copia, LaCartellaDelBersaglioDeveEsserci) {
  EXPECT_EQ(copia(pattern(), folder_.file(QStringLiteral("manca/nuovo.mdb"))), 76);
  EXPECT_EQ(copia(pattern(), folder_.path()), 75);
  EXPECT_EQ(copia(pattern(), QString()), 75);
}

TEST_F(Copia, DaUnModelloDiSolaLetturaNasceUnArchivioScrivibile) {
  const QString modelloFisso = folder_.write(QStringLiteral("modello.bck"), byte(pattern()));
  ASSERT_EQ(::chmod(modelloFisso.toUtf8().constData(), 0444), 0);
  const QString nuovo = folder_.file(QStringLiteral("nuovo.mdb"));
  store::CopyArchive(modelloFisso, nuovo);
  EXPECT_TRUE(QFile(nuovo).permissions().testFlag(QFile::WriteOwner));
}

TEST_F(Copia, ConIlDiscoPienoIlVecchioRestaIntero) {
  const QString vecchio = folder_.write(QStringLiteral("vecchio.mdb"), "prima");
  const QStringList prima = nomi();
  EXPECT_EQ(inOneOtherProcess([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit limite{100000, 100000};
              if (::setrlimit(RLIMIT_FSIZE, &limite) != 0) return 1;
              return numberError([&] { store::CopyArchive(pattern(), vecchio); });
            }),
            61);
  EXPECT_EQ(folder_.read(QStringLiteral("vecchio.mdb")), QByteArray("prima"));
  EXPECT_EQ(nomi(), prima);
}

TEST_F(Copia, SopraUnArchivioApertoLoRimpiazzaEChiudeIlVecchio) {
  run("UPDATE TAB_ARTICOLI SET Prezzo = 5 WHERE auto_id=1");
  EXPECT_EQ(copia(pattern(), path_), 0);
  EXPECT_FALSE(archive_.isOpen());
  archive_ = workspace_.OpenDatabase(path_);
  EXPECT_EQ(value("SELECT Prezzo from TAB_ARTICOLI where auto_id=1"), QStringLiteral("0"));
}

TEST_F(Copia, SopraUnArchivioAMetaDiUnaTransazioneERifiutata) {
  workspace_.BeginTrans();
  run("UPDATE TAB_ARTICOLI SET Prezzo = 5 WHERE auto_id=1");
  EXPECT_EQ(copia(pattern(), path_), 70);
  workspace_.CommitTrans();
  EXPECT_EQ(value("SELECT Prezzo from TAB_ARTICOLI where auto_id=1"), QStringLiteral("5"));
}

TEST_F(Copia, DiUnArchivioApertoPassaPerIlMotore) {
  run("UPDATE TAB_ARTICOLI SET Prezzo = 5 WHERE auto_id=1");
  const QString altro = folder_.file(QStringLiteral("altro.mdb"));
  EXPECT_EQ(copia(path_, altro), 0);
  store::Database copiato = workspace_.OpenDatabase(altro);
  EXPECT_EQ(copiato.OpenRecordset(u"SELECT Prezzo from TAB_ARTICOLI where auto_id=1").int64(0), 5);
  EXPECT_EQ(copia(path_, path_), 70);
}

// A journal left by a killed program must not be played back into the file that takes the place of its own.
TEST_F(Copia, IlGiornaleDiUnProgrammaUccisoNonRestaAccantoAlNuovo) {
  archive_.Close();
  const QString journal = path_ + QStringLiteral("-journal");
  {
    QFile file(journal);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(2000, 'j'));
  }
  EXPECT_EQ(copia(pattern(), path_), 0);
  EXPECT_FALSE(QFile::exists(journal));
}

// The engine's first use in the process may be this copy: the settings of the whole process stand all the
// same.
TEST(CopiaPerPrima, UnaCopiaSopraUnGiornaleNonCambiaLOrdineDelleTabelle) {
  const TemporaryFolder cartella;
  const QString modello = QStringLiteral(GESTIONALE_APP "/QzDB.bck");
  const QString nuovo = cartella.write(QStringLiteral("nuovo.mdb"), "vecchio");
  cartella.write(QStringLiteral("nuovo.mdb-journal"), "j");
  store::CopyArchive(modello, nuovo);
  store::Workspace area;
  store::Database archivio = area.OpenDatabase(nuovo);
  archivio.Execute(u"UPDATE TAB_ARTICOLI SET Codice_EAN = 'ZZZ' WHERE auto_id=1");
  EXPECT_EQ(archivio.OpenRecordset(u"SELECT Codice_EAN from TAB_ARTICOLI ").utf8(0), "ZZZ");
}

}  // namespace
