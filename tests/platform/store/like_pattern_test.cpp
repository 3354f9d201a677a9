#include "platform/store/like_pattern.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

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

TEST(ModelloLike, OltreIConfrontiConcessiNonRisponde) {
  EXPECT_EQ(MatchesPattern("abc", "abc", 3), true);
  EXPECT_EQ(MatchesPattern("abc", "abc", 2), std::nullopt);
  EXPECT_EQ(MatchesPattern("abc", "xbc", 2), false);
  EXPECT_EQ(MatchesPattern("*", std::string(1000, 'a'), 1), true);
  // Each start of the text is tried to the pattern's end.
  const std::string testo(4000, 'a');
  std::string modello(2002, 'a');
  modello.front() = '*';
  modello.back() = 'b';
  EXPECT_EQ(MatchesPattern(modello, testo, 1000000), std::nullopt);
  EXPECT_EQ(MatchesPattern(modello, testo, 10000000), false);
  // And each set to its own.
  modello.front() = '[';
  modello.back() = ']';
  EXPECT_EQ(MatchesPattern(modello, "a", 2001), std::nullopt);
  EXPECT_EQ(MatchesPattern(modello, "a", 2002), true);
}

TEST(ModelloLike, ByteCheNonSonoUtf8NonFannoDanno) {
  EXPECT_TRUE(MatchesPattern("a?b",
                             "a\xFF"
                             "b"));
  EXPECT_FALSE(MatchesPattern("\xE2\x82", "x"));
}

TEST(ModelloLike, UnInizioSenzaSeguitoNonPrendeLaLetteraDopo) {
  const std::string testo =
      "\xC1"
      "ab";
  EXPECT_FALSE(MatchesPattern("ab", testo));
  EXPECT_TRUE(MatchesPattern("?ab", testo));
  EXPECT_FALSE(MatchesPattern("b", testo));
  EXPECT_TRUE(MatchesPattern("?x",
                             "\xE2\x82"
                             "x"));
}

TEST(ModelloLike, UnaFormaTroppoLungaDiUnaLetteraNonELaLettera) {
  EXPECT_FALSE(MatchesPattern("ab",
                              "\xC1\xA1"
                              "b"));
  EXPECT_FALSE(MatchesPattern("a*", "\xE0\x81\xA1"));
  EXPECT_FALSE(MatchesPattern("a*", "\xF8\x80\x80\x81\xA1"));
}

TEST(ModelloLike, NessunCarattereOltreLAsciiValeUnaLetteraAscii) {
  EXPECT_FALSE(MatchesPattern("k*", "\u212A"));
  EXPECT_FALSE(MatchesPattern("s*", "\u017F"));
  EXPECT_FALSE(MatchesPattern("[a-z]", "\u212A"));
}

/// What comes off the front of a text, and how many bytes that took.
std::pair<char32_t, std::size_t> primo(std::string_view testo) {
  std::string_view resto = testo;
  const char32_t carattere = TakeCharacter(resto);
  return {carattere, testo.size() - resto.size()};
}

using Primo = std::pair<char32_t, std::size_t>;

TEST(CaratteriUtf8, QuelliBenFormatiValgonoSeStessi) {
  EXPECT_EQ(primo("a"), Primo(U'a', 1));
  EXPECT_EQ(primo("èa"), Primo(U'è', 2));
  EXPECT_EQ(primo("€a"), Primo(U'€', 3));
  EXPECT_EQ(primo("\xF0\x9F\x8D\x9E"
                  "a"),
            Primo(0x1F35EU, 4));
}

TEST(CaratteriUtf8, UnByteCheNonIniziaNienteValeSeStesso) {
  EXPECT_EQ(primo("\x80"
                  "a"),
            Primo(0x80U, 1));
  EXPECT_EQ(primo("\xBF\xBF"), Primo(0xBFU, 1));
}

TEST(CaratteriUtf8, UnInizioPrendeTuttiESoliIByteDiSeguito) {
  EXPECT_EQ(primo("\xC1"
                  "a"),
            Primo(0xFFFDU, 1));
  EXPECT_EQ(primo("\xC3"), Primo(0xFFFDU, 1));
  EXPECT_EQ(primo("\xE2\x82"
                  "x"),
            Primo(0x82U, 2));
  EXPECT_EQ(primo("\xC3\xA8\xA8"
                  "x"),
            Primo(0x3A28U, 3));
}

TEST(CaratteriUtf8, CioCheNonEUnCarattereEQuelloDiSostituzione) {
  EXPECT_EQ(primo("\xC1\xA1"), Primo(0xFFFDU, 2));
  EXPECT_EQ(primo("\xED\xA0\x80"), Primo(0xFFFDU, 3));
  EXPECT_EQ(primo("\xEF\xBF\xBE"), Primo(0xFFFDU, 3));
  EXPECT_EQ(primo("\xFF\xBF"), Primo(0xFFFDU, 2));
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
