#include <gtest/gtest.h>

#include <QDir>

#include "core/conversioni.h"
#include "core/percorsi.h"
#include "sostegno/cartella_temporanea.h"

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
  for (const auto& [percorso, atteso] : casi)
    EXPECT_EQ(DammiNomeBase(QLatin1String(percorso)), QLatin1String(atteso)) << percorso;
}

TEST(FileEsiste, UnNomeVuotoOConUnSeparatoreInFondoEAssente) {
  const CartellaTemporanea cartella;
  EXPECT_FALSE(FileEsiste(QString()));
  EXPECT_FALSE(FileEsiste(cartella.percorso() + QLatin1Char('/')));
  EXPECT_FALSE(FileEsiste(cartella.percorso() + QLatin1Char('\\')));
}

TEST(FileEsiste, ValgonoIDueSeparatoriEINomiRelativi) {
  const CartellaTemporanea cartella;
  ASSERT_TRUE(QDir(cartella.percorso()).mkdir(QStringLiteral("sotto")));
  cartella.scrivi(QStringLiteral("sotto/uno.txt"), "");
  EXPECT_TRUE(FileEsiste(cartella.percorso() + QStringLiteral("/sotto/uno.txt")));
  EXPECT_TRUE(FileEsiste(cartella.percorso() + QStringLiteral("\\sotto\\uno.txt")));
  EXPECT_TRUE(FileEsiste(QStringLiteral("sotto\\uno.txt")));
  EXPECT_FALSE(FileEsiste(QStringLiteral("sotto\\due.txt")));
}

TEST(FileEsiste, UnaCartellaNonEUnFile) {
  const CartellaTemporanea cartella;
  ASSERT_TRUE(QDir(cartella.percorso()).mkdir(QStringLiteral("sotto")));
  EXPECT_FALSE(FileEsiste(QStringLiteral("sotto")));
}
