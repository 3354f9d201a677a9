#include "platform/text/whole_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "platform/error.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/troubles.h"

namespace {

int numero(const QString& percorso) {
  try {
    WriteWholeFile(percorso, "testo");
  } catch (const Errore& errore) {
    EXPECT_TRUE(errore.descrizione.contains(QDir::toNativeSeparators(percorso)));
    return errore.numero;
  }
  return 0;
}

}  // namespace

TEST(FileIntero, ScriveIByteComeSono) {
  const TemporaryFolder cartella;
  const QByteArray byte("a\r\nb\n\0c", 7);
  WriteWholeFile(cartella.file(QStringLiteral("f")), byte);
  EXPECT_EQ(cartella.read(QStringLiteral("f")), byte);
}

TEST(FileIntero, PrendeIlPostoDiUnFilePiuLungo) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("f"), QByteArray(1000, 'x'));
  WriteWholeFile(cartella.file(QStringLiteral("f")), "y");
  EXPECT_EQ(cartella.read(QStringLiteral("f")), QByteArray("y"));
}

TEST(FileIntero, UnaCartellaCheNonCeDa76) {
  const TemporaryFolder cartella;
  EXPECT_EQ(numero(cartella.file(QStringLiteral("manca/f"))), errors::kPathMissing);
}

TEST(FileIntero, UnaCartellaAlPostoDelFileDa75ENonLasciaNulla) {
  const TemporaryFolder cartella;
  ASSERT_TRUE(QDir().mkdir(cartella.file(QStringLiteral("f"))));
  EXPECT_EQ(numero(cartella.file(QStringLiteral("f"))), errors::kPathAccess);
  EXPECT_EQ(QDir(cartella.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
}

TEST(FileIntero, UnDispositivoNonSiSostituisce) {
  const TemporaryFolder cartella;
  ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), cartella.file(QStringLiteral("f"))));
  EXPECT_EQ(numero(cartella.file(QStringLiteral("f"))), errors::kPathAccess);
  EXPECT_FALSE(QFileInfo(QStringLiteral("/dev/full")).isFile());
}

TEST(FileIntero, DietroUnCollegamentoSiScriveDoveEssoPorta) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("vero"), "prima");
  ASSERT_TRUE(QFile::link(cartella.file(QStringLiteral("vero")), cartella.file(QStringLiteral("f"))));
  WriteWholeFile(cartella.file(QStringLiteral("f")), "dopo");
  EXPECT_EQ(cartella.read(QStringLiteral("vero")), "dopo");
  EXPECT_TRUE(QFileInfo(cartella.file(QStringLiteral("f"))).isSymLink());
}

TEST(FileIntero, SulDiscoPienoRestaQuelCheCEra) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("f"), "prima");
  {
    const FullDisk pieno(100);
    try {
      WriteWholeFile(cartella.file(QStringLiteral("f")), QByteArray(1000, 'x'));
      ADD_FAILURE() << "written";
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, errors::kDiskFull);
      EXPECT_EQ(errore.descrizione, QStringLiteral("Disco pieno: ") + cartella.file(QStringLiteral("f")));
    }
  }
  EXPECT_EQ(cartella.read(QStringLiteral("f")), "prima");
  EXPECT_EQ(QDir(cartella.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("f")});
}

TEST(FileIntero, SiLeggonoTuttiIByteENonDiPiu) {
  const TemporaryFolder cartella;
  const QString percorso = cartella.write(QStringLiteral("f"), "12345");
  EXPECT_EQ(ReadWholeFile(percorso, 5), "12345");
  try {
    ReadWholeFile(percorso, 4);
    ADD_FAILURE() << "read";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kPastEnd);
  }
}

TEST(FileIntero, NonSiLeggeCioCheNonEUnFile) {
  const TemporaryFolder cartella;
  for (const auto& [percorso, previsto] :
       {std::pair{cartella.path(), errors::kPathAccess},
        std::pair{QStringLiteral("/dev/zero"), errors::kPathAccess},
        std::pair{cartella.file(QStringLiteral("no")), errors::kFileMissing}})
    try {
      ReadWholeFile(percorso, 10);
      ADD_FAILURE() << "read";
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, previsto) << percorso.toStdString();
    }
}

TEST(FileIntero, AggiungereFaCrescereIlFileELoCreaSeManca) {
  const TemporaryFolder cartella;
  const QString percorso = cartella.file(QStringLiteral("f"));
  AppendToFile(percorso, "uno");
  AppendToFile(percorso, "due");
  EXPECT_EQ(cartella.read(QStringLiteral("f")), "unodue");
}

TEST(FileIntero, AggiungereDiceDiscoPienoECartellaAssente) {
  for (const auto& [percorso, previsto] : {std::pair{QStringLiteral("/dev/full"), errors::kDiskFull},
                                           std::pair{QStringLiteral("/assente/f"), errors::kPathMissing}})
    try {
      AppendToFile(percorso, "uno");
      ADD_FAILURE() << "written";
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, previsto);
    }
}

TEST(FileIntero, ToglieUnFileOUnCollegamentoENonQuelloACuiPorta) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("f"), "uno");
  ASSERT_TRUE(QFile::link(cartella.file(QStringLiteral("f")), cartella.file(QStringLiteral("porta"))));
  ASSERT_TRUE(QFile::link(cartella.file(QStringLiteral("manca")), cartella.file(QStringLiteral("vuoto"))));
  for (const QString& nome : {QStringLiteral("porta"), QStringLiteral("vuoto"), QStringLiteral("manca")})
    RemoveFile(cartella.file(nome));
  EXPECT_EQ(QDir(cartella.path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
            QStringList{QStringLiteral("f")});
  RemoveFile(cartella.file(QStringLiteral("f")));
  EXPECT_TRUE(QDir(cartella.path()).isEmpty());
}

TEST(FileIntero, CioCheNonSiToglieDa75) {
  const TemporaryFolder cartella;
  try {
    RemoveFile(cartella.path());
    ADD_FAILURE() << "removed";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kPathAccess);
  }
}
