#include "platform/store/modello_like.h"

#include <gtest/gtest.h>

#include <string>

namespace store {
namespace {

TEST(ModelloLike, AsteriscoPrendeQualsiasiSeguito) {
  EXPECT_TRUE(SomigliaAlModello("LATTE*", "LATTE INTERO"));
  EXPECT_TRUE(SomigliaAlModello("LATTE*", "LATTE"));
  EXPECT_FALSE(SomigliaAlModello("LATTE*", "IL LATTE"));
  EXPECT_TRUE(SomigliaAlModello("*TT*E", "LATTE"));
  EXPECT_TRUE(SomigliaAlModello("*", ""));
  EXPECT_TRUE(SomigliaAlModello("a*b*c", "a-b-bb-c"));
  EXPECT_FALSE(SomigliaAlModello("a*b*c", "a-b-bb-c-"));
}

TEST(ModelloLike, MaiuscoleEMinuscoleSonoUgualiAncheAccentate) {
  EXPECT_TRUE(SomigliaAlModello("caffè*", "CAFFÈ NERO"));
  EXPECT_TRUE(SomigliaAlModello("[A-C]x", "bX"));
}

TEST(ModelloLike, PuntoInterrogativoPrendeUnCarattereAncheDiPiuByte) {
  EXPECT_TRUE(SomigliaAlModello("caff?", "caffè"));
  EXPECT_TRUE(SomigliaAlModello("?", "€"));
  EXPECT_FALSE(SomigliaAlModello("??", "€"));
  EXPECT_FALSE(SomigliaAlModello("?", ""));
}

TEST(ModelloLike, CancellettoPrendeUnaCifra) {
  EXPECT_TRUE(SomigliaAlModello("A##", "A42"));
  EXPECT_FALSE(SomigliaAlModello("A##", "A4B"));
}

TEST(ModelloLike, InsiemiEInsiemiEsclusi) {
  EXPECT_TRUE(SomigliaAlModello("[a-c1]z", "1Z"));
  EXPECT_FALSE(SomigliaAlModello("[a-c]z", "dz"));
  EXPECT_TRUE(SomigliaAlModello("[!a-c]z", "dz"));
  EXPECT_FALSE(SomigliaAlModello("[!a-c]z", "bz"));
  EXPECT_FALSE(SomigliaAlModello("[!a-c]", ""));
  EXPECT_TRUE(SomigliaAlModello("[*][?][#]", "*?#"));
  EXPECT_TRUE(SomigliaAlModello("a[]b", "ab"));
}

TEST(ModelloLike, PercentoETrattoBassoSonoCaratteriComuni) {
  EXPECT_TRUE(SomigliaAlModello("10%*", "10% IVA"));
  EXPECT_FALSE(SomigliaAlModello("10%*", "100 IVA"));
  EXPECT_FALSE(SomigliaAlModello("A_C", "ABC"));
}

TEST(ModelloLike, MoltiAsterischiNonCostanoUnTempoEsponenziale) {
  const std::string testo(2000, 'a');
  std::string modello;
  for (int i = 0; i < 50; ++i) modello += "a*";
  EXPECT_FALSE(SomigliaAlModello(modello + "b", testo));
}

TEST(ModelloLike, ByteCheNonSonoUtf8NonFannoDanno) {
  EXPECT_TRUE(SomigliaAlModello("a?b",
                                "a\xFF"
                                "b"));
  EXPECT_FALSE(SomigliaAlModello("\xE2\x82", "x"));
}

TEST(ModelloLike, SoloUnaParentesiApertaNonEValida) {
  EXPECT_TRUE(ModelloValido("a[b]c"));
  EXPECT_TRUE(ModelloValido("a]b"));
  EXPECT_FALSE(ModelloValido("a[b"));
}

TEST(ModelloLike, IlPrefissoFissoFinisceAlPrimoSegnoOAccento) {
  EXPECT_EQ(PrefissoFisso("80123*"), "80123");
  EXPECT_EQ(PrefissoFisso("80?3*"), "80");
  EXPECT_EQ(PrefissoFisso("CAFFÈ*"), "CAFF");
  EXPECT_EQ(PrefissoFisso("*x"), "");
  EXPECT_EQ(PrefissoFisso("a#"), "a");
  EXPECT_EQ(PrefissoFisso("a[b]"), "a");
}

}  // namespace
}  // namespace store
