#include "platform/text/file_intero.h"

#include <gtest/gtest.h>

#include <QDir>

#include "platform/errore.h"
#include "sostegno/cartella_temporanea.h"

namespace {

int numero(const QString& percorso) {
  try {
    ScriviFileIntero(percorso, "testo");
  } catch (const Errore& errore) {
    EXPECT_TRUE(errore.descrizione.contains(QDir::toNativeSeparators(percorso)));
    return errore.numero;
  }
  return 0;
}

}  // namespace

TEST(FileIntero, ScriveIByteComeSono) {
  const CartellaTemporanea cartella;
  const QByteArray byte("a\r\nb\n\0c", 7);
  ScriviFileIntero(cartella.file(QStringLiteral("f")), byte);
  EXPECT_EQ(cartella.leggi(QStringLiteral("f")), byte);
}

TEST(FileIntero, PrendeIlPostoDiUnFilePiuLungo) {
  const CartellaTemporanea cartella;
  cartella.scrivi(QStringLiteral("f"), QByteArray(1000, 'x'));
  ScriviFileIntero(cartella.file(QStringLiteral("f")), "y");
  EXPECT_EQ(cartella.leggi(QStringLiteral("f")), QByteArray("y"));
}

TEST(FileIntero, UnaCartellaCheNonCeDa76) {
  const CartellaTemporanea cartella;
  EXPECT_EQ(numero(cartella.file(QStringLiteral("manca/f"))), errore::kPercorsoAssente);
}

TEST(FileIntero, UnaCartellaAlPostoDelFileDa75ENonLasciaNulla) {
  const CartellaTemporanea cartella;
  ASSERT_TRUE(QDir().mkdir(cartella.file(QStringLiteral("f"))));
  EXPECT_EQ(numero(cartella.file(QStringLiteral("f"))), errore::kAccessoPercorso);
  EXPECT_EQ(QDir(cartella.percorso()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
}
