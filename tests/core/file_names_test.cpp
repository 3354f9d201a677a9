#include <gtest/gtest.h>

#include <QDir>

#include "core/conversions.h"
#include "core/paths.h"
#include "sostegno/temporary_folder.h"

TEST(DammiNomeBase, ELaParteDopoLUltimoSeparatoreFinoAlPrimoPunto) {
  const std::pair<const char*, const char*> casi[] = {{"C:\\dati\\negozio.dat", "negozio"},
                                                      {"/home/io/negozio.dat", "negozio"},
                                                      {"negozio", "negozio"},
                                                      {"a.b\\c.d.e", "c"},
                                                      {"a.b/c", "c"},
                                                      {"C:\\dati/misto.x", "misto"},
                                                      {"dati\\", ""},
                                                      {"/.nascosto", ""},
                                                      {"", ""}};
  for (const auto& [percorso, previsto] : casi)
    EXPECT_EQ(DammiNomeBase(QLatin1String(percorso)), QLatin1String(previsto)) << percorso;
}

TEST(FileEsiste, UnNomeVuotoOConUnSeparatoreInFondoEAssente) {
  const TemporaryFolder cartella;
  EXPECT_FALSE(FileEsiste(QString()));
  EXPECT_FALSE(FileEsiste(cartella.path() + QLatin1Char('/')));
  EXPECT_FALSE(FileEsiste(cartella.path() + QLatin1Char('\\')));
}

TEST(FileEsiste, ValgonoIDueSeparatoriEINomiRelativi) {
  const TemporaryFolder cartella;
  ASSERT_TRUE(QDir(cartella.path()).mkdir(QStringLiteral("sotto")));
  cartella.write(QStringLiteral("sotto/uno.txt"), "");
  EXPECT_TRUE(FileEsiste(cartella.path() + QStringLiteral("/sotto/uno.txt")));
  EXPECT_TRUE(FileEsiste(cartella.path() + QStringLiteral("\\sotto\\uno.txt")));
  EXPECT_TRUE(FileEsiste(QStringLiteral("sotto\\uno.txt")));
  EXPECT_FALSE(FileEsiste(QStringLiteral("sotto\\due.txt")));
}

TEST(FileEsiste, UnaCartellaNonEUnFile) {
  const TemporaryFolder cartella;
  ASSERT_TRUE(QDir(cartella.path()).mkdir(QStringLiteral("sotto")));
  EXPECT_FALSE(FileEsiste(QStringLiteral("sotto")));
}
