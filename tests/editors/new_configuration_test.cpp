#include "editors/new_configuration.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFileInfo>

#include "config/configuration_file.h"
#include "platform/error.h"
#include "platform/text/whole_file.h"
#include "sostegno/program_fixture.h"
#include "sostegno/troubles.h"

namespace {

const QString kNegozio = QStringLiteral("negozio.dat");
const QString kCompagno = QStringLiteral("negozio_art.mdb");
const QString kPrecedente = QStringLiteral("negozio.dat.precedente");
const QString kCompagnoPrecedente = QStringLiteral("negozio_art.mdb.precedente");
const QString kCopia = QStringLiteral("copia.dat");
const QString kCopiaCompagno = QStringLiteral("copia_art.mdb");
constexpr qsizetype kByteFile = 245114;
constexpr qsizetype kTanto = 1 << 24;
/// Takes a configuration, but not the archive beside it.
constexpr unsigned long kTraLeDueCopie = 250000;

QByteArray modello(const char* nome) {
  return ReadWholeFile(QDir(QStringLiteral(GESTIONALE_APP)).filePath(QLatin1String(nome)), kTanto);
}

class ConfigurazioneNuova : public testing::Test {
 protected:
  ConfigurazioneNuova() {
    config::azzeraConfigurazione();
    varGestionePRG().PathConfigurazione = kAperta;
  }
  ~ConfigurazioneNuova() override { config::azzeraConfigurazione(); }

  QString file(const QString& nome) const { return bottega.folder.file(nome); }
  QByteArray byte(const QString& nome) const { return bottega.folder.read(nome); }
  /// Everything in the folder, hidden files too.
  QStringList nomi() const {
    return QDir(bottega.folder.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }
  /// A configuration and an archive to start from.
  QString origine() {
    bottega.folder.write(QStringLiteral("origine_art.mdb"), modello("QzDB.bck") + QByteArray(4096, 'o'));
    return bottega.folder.write(QStringLiteral("origine.dat"), "V03.00KAR" + QByteArray(kByteFile - 9, 'o'));
  }
  template <typename Passo>
  void fallisce(int numero, const QString& colpito, Passo&& passo) {
    try {
      std::forward<Passo>(passo)();
      ADD_FAILURE() << "made";
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, numero);
      EXPECT_TRUE(errore.descrizione.endsWith(QStringLiteral(": ") + colpito))
          << errore.descrizione.toStdString();
    }
    EXPECT_EQ(varGestionePRG().PathConfigurazione, kAperta);
    EXPECT_TRUE(bottega.takeBoxes().empty());
  }

  const QString kAperta = QStringLiteral("/altrove/aperta.dat");
  ProgramFixture bottega;
};

}  // namespace

// From the templates.

TEST_F(ConfigurazioneNuova, EIDueModelliBytePerByteEDiventaQuellaInUso) {
  editors::NuovaConfigurazione(file(kNegozio), bottega.contesto);
  EXPECT_TRUE(byte(kNegozio) == modello("QzPRG.bck"));
  EXPECT_TRUE(byte(kCompagno) == modello("QzDB.bck"));
  EXPECT_EQ(nomi(), (QStringList{kNegozio, kCompagno}));
  EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kNegozio));
}

TEST_F(ConfigurazioneNuova, SopraUnaCheCETieneAccantoFileEArchivioDiPrima) {
  bottega.folder.write(kNegozio, "mio file");
  bottega.folder.write(kCompagno, "mio archivio");
  editors::NuovaConfigurazione(file(kNegozio), bottega.contesto);
  EXPECT_TRUE(byte(kNegozio) == modello("QzPRG.bck"));
  EXPECT_TRUE(byte(kCompagno) == modello("QzDB.bck"));
  EXPECT_EQ(byte(kPrecedente), "mio file");
  EXPECT_EQ(byte(kCompagnoPrecedente), "mio archivio");
}

TEST_F(ConfigurazioneNuova, ColDiscoPienoPerLArchivioNonRestaMezza) {
  {
    const FullDisk pieno(kTraLeDueCopie);
    fallisce(61, file(kCompagno), [&] { editors::NuovaConfigurazione(file(kNegozio), bottega.contesto); });
  }
  EXPECT_EQ(nomi(), QStringList());
}

TEST_F(ConfigurazioneNuova, ColDiscoPienoPerLArchivioQuellaDiPrimaResta) {
  bottega.folder.write(kNegozio, "mio file");
  bottega.folder.write(kCompagno, "mio archivio");
  {
    const FullDisk pieno(kTraLeDueCopie);
    fallisce(61, file(kCompagno), [&] { editors::NuovaConfigurazione(file(kNegozio), bottega.contesto); });
  }
  EXPECT_EQ(byte(kNegozio), "mio file");
  EXPECT_EQ(byte(kCompagno), "mio archivio");
  EXPECT_EQ(nomi(), (QStringList{kNegozio, kPrecedente, kCompagno, kCompagnoPrecedente}));
}

TEST_F(ConfigurazioneNuova, ColDiscoPienoPerIlFileNonSiToccaNulla) {
  bottega.folder.write(kNegozio, "mio file");
  bottega.folder.write(kCompagno, "mio archivio");
  {
    const FullDisk pieno(100000);
    fallisce(61, file(kNegozio), [&] { editors::NuovaConfigurazione(file(kNegozio), bottega.contesto); });
  }
  EXPECT_EQ(byte(kNegozio), "mio file");
  EXPECT_EQ(byte(kCompagno), "mio archivio");
  EXPECT_EQ(nomi(), (QStringList{kNegozio, kCompagno}));
}

TEST_F(ConfigurazioneNuova, InUnaCartellaDiSolaLetturaNonSiFaNulla) {
  ASSERT_EQ(chmod(bottega.folder.path().toUtf8().constData(), 0755), 0);
  {
    const OtherUser altro;
    fallisce(75, file(kNegozio), [&] { editors::NuovaConfigurazione(file(kNegozio), bottega.contesto); });
  }
  EXPECT_EQ(nomi(), QStringList());
}

TEST_F(ConfigurazioneNuova, LArchivioChePortaInUnaCartellaDiSolaLetturaLasciaIlFileDiPrima) {
  const QString altrove = file(QStringLiteral("altrove"));
  ASSERT_TRUE(QDir().mkdir(altrove));
  bottega.folder.write(QStringLiteral("altrove/vero.mdb"), "mio archivio");
  ASSERT_TRUE(QFile::link(altrove + QStringLiteral("/vero.mdb"), file(kCompagno)));
  bottega.folder.write(kNegozio, "mio file");
  ASSERT_EQ(chmod(altrove.toUtf8().constData(), 0755), 0);
  ASSERT_EQ(chmod(bottega.folder.path().toUtf8().constData(), 0777), 0);
  {
    const OtherUser altro;
    fallisce(75, altrove + QStringLiteral("/vero.mdb"),
             [&] { editors::NuovaConfigurazione(file(kNegozio), bottega.contesto); });
  }
  EXPECT_EQ(byte(kNegozio), "mio file");
  EXPECT_EQ(byte(QStringLiteral("altrove/vero.mdb")), "mio archivio");
  EXPECT_EQ(QDir(altrove).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("vero.mdb")});
}

TEST_F(ConfigurazioneNuova, UnaCartellaAlPostoDellArchivioLasciaIlFileDiPrima) {
  ASSERT_TRUE(QDir().mkdir(file(kCompagno)));
  bottega.folder.write(kNegozio, "mio file");
  fallisce(75, file(kCompagno), [&] { editors::NuovaConfigurazione(file(kNegozio), bottega.contesto); });
  EXPECT_EQ(byte(kNegozio), "mio file");
}

TEST_F(ConfigurazioneNuova, LArchivioBloccatoDaUnAltroProgrammaLasciaIlFileDiPrima) {
  bottega.folder.write(kNegozio, "mio file");
  bottega.folder.write(kCompagno, modello("QzDB.bck"));
  {
    const OtherProgram altro(file(kCompagno), {QStringLiteral("BEGIN EXCLUSIVE")});
    try {
      editors::NuovaConfigurazione(file(kNegozio), bottega.contesto);
      ADD_FAILURE() << "made";
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, 3260);
    }
  }
  EXPECT_EQ(byte(kNegozio), "mio file");
  EXPECT_TRUE(byte(kCompagno) == modello("QzDB.bck"));
  EXPECT_EQ(varGestionePRG().PathConfigurazione, kAperta);
}

TEST_F(ConfigurazioneNuova, SenzaPostoPerIlPrecedenteNonSiSostituisceNulla) {
  ASSERT_TRUE(QDir().mkdir(file(kPrecedente)));
  bottega.folder.write(kNegozio, "mio file");
  bottega.folder.write(kCompagno, "mio archivio");
  fallisce(75, file(kPrecedente), [&] { editors::NuovaConfigurazione(file(kNegozio), bottega.contesto); });
  EXPECT_EQ(byte(kNegozio), "mio file");
  EXPECT_EQ(byte(kCompagno), "mio archivio");
}

TEST_F(ConfigurazioneNuova, SenzaModelliNonSiFaNulla) {
  bottega.contesto.cartella = bottega.folder.path();
  fallisce(53, file(QStringLiteral("QzPRG.bck")),
           [&] { editors::NuovaConfigurazione(file(kNegozio), bottega.contesto); });
  EXPECT_EQ(nomi(), QStringList());
}

TEST_F(ConfigurazioneNuova, DeiDueModelliCheMancanoSiDiceIlPrimo) {
  EXPECT_TRUE(editors::modelliPresenti(bottega.contesto));
  bottega.contesto.cartella = bottega.folder.path();
  EXPECT_FALSE(editors::modelliPresenti(bottega.contesto));
  expectBoxes(
      bottega,
      {criticalBox(QStringLiteral("Attenzione il file di sistema QzPRG.bck potrebbe essere assente !!!"))});
}

TEST_F(ConfigurazioneNuova, OccupatoEUnNomeDiCuiCeIlFileOLArchivio) {
  EXPECT_FALSE(editors::occupato(file(kNegozio)));
  bottega.folder.write(kCompagno, "archivio");
  EXPECT_TRUE(editors::occupato(file(kNegozio)));
  bottega.folder.write(kCopia, "file");
  EXPECT_TRUE(editors::occupato(file(kCopia)));
}

// From another one.

TEST_F(ConfigurazioneNuova, DaUnAltraCopiaFileEArchivioEDiventaQuellaInUso) {
  const QString da = origine();
  editors::CreaDaConfigurazione(da, file(kCopia), bottega.contesto);
  EXPECT_TRUE(byte(kCopia) == byte(QStringLiteral("origine.dat")));
  EXPECT_TRUE(byte(kCopiaCompagno) == byte(QStringLiteral("origine_art.mdb")));
  EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kCopia));
}

TEST_F(ConfigurazioneNuova, DiUnaPiuLungaSiCopianoISuoiPrimi245114Byte) {
  const QString da = origine();
  const QByteArray intera = byte(QStringLiteral("origine.dat"));
  bottega.folder.write(QStringLiteral("origine.dat"), intera + "coda");
  editors::CreaDaConfigurazione(da, file(kCopia), bottega.contesto);
  EXPECT_TRUE(byte(kCopia) == intera);
}

TEST_F(ConfigurazioneNuova, DaUnAltraColDiscoPienoPerLArchivioQuellaDiPrimaResta) {
  const QString da = origine();
  bottega.folder.write(kCopia, "mio file");
  bottega.folder.write(kCopiaCompagno, "mio archivio");
  {
    const FullDisk pieno(kTraLeDueCopie);
    fallisce(61, file(kCopiaCompagno),
             [&] { editors::CreaDaConfigurazione(da, file(kCopia), bottega.contesto); });
  }
  EXPECT_EQ(byte(kCopia), "mio file");
  EXPECT_EQ(byte(kCopiaCompagno), "mio archivio");
}

TEST_F(ConfigurazioneNuova, DaUnaSenzaArchivioNonSiFaNulla) {
  const QString da = origine();
  ASSERT_TRUE(QFile::remove(file(QStringLiteral("origine_art.mdb"))));
  fallisce(53, file(QStringLiteral("origine_art.mdb")),
           [&] { editors::CreaDaConfigurazione(da, file(kCopia), bottega.contesto); });
  EXPECT_EQ(nomi(), QStringList{QStringLiteral("origine.dat")});
}

TEST_F(ConfigurazioneNuova, DaSeStessaSiRifiutaAnchePerUnAltraStrada) {
  const QString da = origine();
  const QByteArray prima = byte(QStringLiteral("origine.dat"));
  ASSERT_TRUE(QFile::link(da, file(QStringLiteral("strada.dat"))));
  for (const QString& nome :
       {QStringLiteral("origine.dat"), QStringLiteral("./origine.dat"), QStringLiteral("strada.dat")})
    fallisce(70, file(nome), [&] { editors::CreaDaConfigurazione(da, file(nome), bottega.contesto); });
  EXPECT_TRUE(byte(QStringLiteral("origine.dat")) == prima);
}

// The one in use, while another is tried.

TEST_F(ConfigurazioneNuova, QuellaInUsoTornaComEraSeNonSiTiene) {
  const config::TestataFile testata{'V', '0', '3', '.', '0', '0', 'K', 'A', 'R'};
  config::testataFile() = testata;
  varGestionePRG().NomeFileDat = QStringLiteral("aperta.dat");
  const auto prova = [this](bool tieni) {
    editors::ConfigurazioneInUso prima;
    varGestionePRG().PathConfigurazione = file(kNegozio);
    varGestionePRG().NomeFileDat = kNegozio;
    config::testataFile().fill('x');
    if (tieni) prima.tieni();
  };
  prova(false);
  EXPECT_EQ(varGestionePRG().PathConfigurazione, kAperta);
  EXPECT_EQ(varGestionePRG().NomeFileDat, QStringLiteral("aperta.dat"));
  EXPECT_EQ(config::testataFile(), testata);
  prova(true);
  EXPECT_EQ(varGestionePRG().PathConfigurazione, file(kNegozio));
  EXPECT_EQ(varGestionePRG().NomeFileDat, kNegozio);
  EXPECT_EQ(config::modelloFile(), QStringLiteral("xxx"));
}
