#include "platform/text/whole_file.h"

#include <gtest/gtest.h>

#include <QDir>

#include "platform/error.h"
#include "sostegno/temporary_folder.h"

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
