#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <csignal>

#include "platform/store/altro_processo.h"
#include "platform/store/archivio_di_prova.h"

namespace {

class Copia : public ArchivioDiProva {
 protected:
  int copia(const QString& da, const QString& a) {
    return numeroErrore([&] { store::CopiaArchivio(da, a); });
  }
  QByteArray byte(const QString& percorso) {
    QFile file(percorso);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }
  QStringList nomi() { return QDir(cartella_.percorso()).entryList(QDir::Files | QDir::Hidden); }
};

TEST_F(Copia, PortaOgniByteDelModello) {
  const QString nuovo = cartella_.file(QStringLiteral("nuovo.mdb"));
  EXPECT_EQ(copia(modello(), nuovo), 0);
  EXPECT_EQ(byte(nuovo), byte(modello()));
}

TEST_F(Copia, SenzaSorgenteIlBersaglioRestaComEra) {
  const QString vecchio = cartella_.scrivi(QStringLiteral("vecchio.mdb"), "prima");
  EXPECT_EQ(copia(cartella_.file(QStringLiteral("assente.bck")), vecchio), 53);
  EXPECT_EQ(cartella_.leggi(QStringLiteral("vecchio.mdb")), QByteArray("prima"));
}

TEST_F(Copia, LaCartellaDelBersaglioDeveEsserci) {
  EXPECT_EQ(copia(modello(), cartella_.file(QStringLiteral("manca/nuovo.mdb"))), 76);
  EXPECT_EQ(copia(modello(), cartella_.percorso()), 75);
  EXPECT_EQ(copia(modello(), QString()), 75);
}

TEST_F(Copia, DaUnModelloDiSolaLetturaNasceUnArchivioScrivibile) {
  const QString modelloFisso = cartella_.scrivi(QStringLiteral("modello.bck"), byte(modello()));
  ASSERT_EQ(::chmod(modelloFisso.toUtf8().constData(), 0444), 0);
  const QString nuovo = cartella_.file(QStringLiteral("nuovo.mdb"));
  store::CopiaArchivio(modelloFisso, nuovo);
  EXPECT_TRUE(QFile(nuovo).permissions().testFlag(QFile::WriteOwner));
}

TEST_F(Copia, ConIlDiscoPienoIlVecchioRestaIntero) {
  const QString vecchio = cartella_.scrivi(QStringLiteral("vecchio.mdb"), "prima");
  const QStringList prima = nomi();
  EXPECT_EQ(inUnAltroProcesso([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit limite{100000, 100000};
              if (::setrlimit(RLIMIT_FSIZE, &limite) != 0) return 1;
              return numeroErrore([&] { store::CopiaArchivio(modello(), vecchio); });
            }),
            61);
  EXPECT_EQ(cartella_.leggi(QStringLiteral("vecchio.mdb")), QByteArray("prima"));
  EXPECT_EQ(nomi(), prima);
}

TEST_F(Copia, SopraUnArchivioApertoLoRimpiazzaEChiudeIlVecchio) {
  esegui("UPDATE TAB_ARTICOLI SET Prezzo = 5 WHERE auto_id=1");
  EXPECT_EQ(copia(modello(), percorso_), 0);
  EXPECT_FALSE(archivio_.aperto());
  archivio_ = area_.OpenDatabase(percorso_);
  EXPECT_EQ(valore("SELECT Prezzo from TAB_ARTICOLI where auto_id=1"), QStringLiteral("0"));
}

TEST_F(Copia, SopraUnArchivioAMetaDiUnaTransazioneERifiutata) {
  area_.BeginTrans();
  esegui("UPDATE TAB_ARTICOLI SET Prezzo = 5 WHERE auto_id=1");
  EXPECT_EQ(copia(modello(), percorso_), 70);
  area_.CommitTrans();
  EXPECT_EQ(valore("SELECT Prezzo from TAB_ARTICOLI where auto_id=1"), QStringLiteral("5"));
}

TEST_F(Copia, DiUnArchivioApertoPassaPerIlMotore) {
  esegui("UPDATE TAB_ARTICOLI SET Prezzo = 5 WHERE auto_id=1");
  const QString altro = cartella_.file(QStringLiteral("altro.mdb"));
  EXPECT_EQ(copia(percorso_, altro), 0);
  store::Database copiato = area_.OpenDatabase(altro);
  EXPECT_EQ(
      copiato.OpenRecordset(QStringLiteral("SELECT Prezzo from TAB_ARTICOLI where auto_id=1")).intero64(0),
      5);
  EXPECT_EQ(copia(percorso_, percorso_), 70);
}

// A journal left by a killed program must not be played back into the file that takes the place of its own.
TEST_F(Copia, IlGiornaleDiUnProgrammaUccisoNonRestaAccantoAlNuovo) {
  archivio_.Close();
  const QString giornale = percorso_ + QStringLiteral("-journal");
  {
    QFile file(giornale);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(2000, 'j'));
  }
  EXPECT_EQ(copia(modello(), percorso_), 0);
  EXPECT_FALSE(QFile::exists(giornale));
}

// The engine's first use in the process may be this copy: the settings of the whole process stand all the
// same.
TEST(CopiaPerPrima, UnaCopiaSopraUnGiornaleNonCambiaLOrdineDelleTabelle) {
  const CartellaTemporanea cartella;
  const QString modello = QStringLiteral(GESTIONALE_APP "/QzDB.bck");
  const QString nuovo = cartella.scrivi(QStringLiteral("nuovo.mdb"), "vecchio");
  cartella.scrivi(QStringLiteral("nuovo.mdb-journal"), "j");
  store::CopiaArchivio(modello, nuovo);
  store::Workspace area;
  store::Database archivio = area.OpenDatabase(nuovo);
  archivio.Execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN = 'ZZZ' WHERE auto_id=1"));
  EXPECT_EQ(archivio.OpenRecordset(QStringLiteral("SELECT Codice_EAN from TAB_ARTICOLI ")).utf8(0), "ZZZ");
}

}  // namespace
