#include "platform/store/like_pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace store {
namespace {

TEST(ModelloLike, AsteriscoPrendeQualsiasiSeguito) {
  EXPECT_TRUE(MatchesPattern("LATTE*", "LATTE INTERO"));
  EXPECT_TRUE(MatchesPattern("LATTE*", "LATTE"));
  EXPECT_FALSE(MatchesPattern("LATTE*", "IL LATTE"));
  EXPECT_TRUE(MatchesPattern("*TT*E", "LATTE"));
  EXPECT_TRUE(MatchesPattern("*", ""));
  EXPECT_TRUE(MatchesPattern("a*b*c", "a-b-bb-c"));
  EXPECT_FALSE(MatchesPattern("a*b*c", "a-b-bb-c-"));
}

TEST(ModelloLike, MaiuscoleEMinuscoleSonoUgualiAncheAccentate) {
  EXPECT_TRUE(MatchesPattern("caffè*", "CAFFÈ NERO"));
  EXPECT_TRUE(MatchesPattern("[A-C]x", "bX"));
}

TEST(ModelloLike, PuntoInterrogativoPrendeUnCarattereAncheDiPiuByte) {
  EXPECT_TRUE(MatchesPattern("caff?", "caffè"));
  EXPECT_TRUE(MatchesPattern("?", "€"));
  EXPECT_FALSE(MatchesPattern("??", "€"));
  EXPECT_FALSE(MatchesPattern("?", ""));
}

TEST(ModelloLike, CancellettoPrendeUnaCifra) {
  EXPECT_TRUE(MatchesPattern("A##", "A42"));
  EXPECT_FALSE(MatchesPattern("A##", "A4B"));
}

TEST(ModelloLike, InsiemiEInsiemiEsclusi) {
  EXPECT_TRUE(MatchesPattern("[a-c1]z", "1Z"));
  EXPECT_FALSE(MatchesPattern("[a-c]z", "dz"));
  EXPECT_TRUE(MatchesPattern("[!a-c]z", "dz"));
  EXPECT_FALSE(MatchesPattern("[!a-c]z", "bz"));
  EXPECT_FALSE(MatchesPattern("[!a-c]", ""));
  EXPECT_TRUE(MatchesPattern("[*][?][#]", "*?#"));
  EXPECT_TRUE(MatchesPattern("a[]b", "ab"));
}

TEST(ModelloLike, PercentoETrattoBassoSonoCaratteriComuni) {
  EXPECT_TRUE(MatchesPattern("10%*", "10% IVA"));
  EXPECT_FALSE(MatchesPattern("10%*", "100 IVA"));
  EXPECT_FALSE(MatchesPattern("A_C", "ABC"));
}

TEST(ModelloLike, MoltiAsterischiNonCostanoUnTempoEsponenziale) {
  const std::string testo(2000, 'a');
  std::string modello;
  for (int i = 0; i < 50; ++i) modello += "a*";
  EXPECT_FALSE(MatchesPattern(modello + "b", testo));
}

TEST(ModelloLike, ByteCheNonSonoUtf8NonFannoDanno) {
  EXPECT_TRUE(MatchesPattern("a?b",
                             "a\xFF"
                             "b"));
  EXPECT_FALSE(MatchesPattern("\xE2\x82", "x"));
}

TEST(ModelloLike, SoloUnaParentesiApertaNonEValida) {
  EXPECT_TRUE(ValidPattern("a[b]c"));
  EXPECT_TRUE(ValidPattern("a]b"));
  EXPECT_FALSE(ValidPattern("a[b"));
}

TEST(ModelloLike, IlPrefissoFissoFinisceAlPrimoSegnoOAccento) {
  EXPECT_EQ(FixedPrefix("80123*"), "80123");
  EXPECT_EQ(FixedPrefix("80?3*"), "80");
  EXPECT_EQ(FixedPrefix("CAFFÈ*"), "CAFF");
  EXPECT_EQ(FixedPrefix("*x"), "");
  EXPECT_EQ(FixedPrefix("a#"), "a");
  EXPECT_EQ(FixedPrefix("a[b]"), "a");
}

}  // namespace
}  // namespace store
