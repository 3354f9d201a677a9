#include "ecrsim/key_parser.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "ecrsim/money.h"

using namespace ecrsim;

namespace {

std::vector<Stroke> tasti(std::string_view testo) {
  KeyParser lettore;
  std::vector<Stroke> letti;
  for (const char uno : testo)
    if (const auto tasto = lettore.feed(uno)) letti.push_back(*tasto);
  if (const auto resto = lettore.end()) letti.push_back(*resto);
  return letti;
}

using Tasti = std::vector<Stroke>;

}  // namespace

TEST(LettoreDiTasti, OgniTastoPortaIlNumeroBattutoPrima) {
  EXPECT_EQ(tasti("4,5*10P"), (Tasti{{Key::Times, "4,5", ""}, {Key::Plu, "10", ""}}));
  EXPECT_EQ(tasti("1,00H1R12M"),
            (Tasti{{Key::Amount, "1,00", ""}, {Key::Department, "1", ""}, {Key::Modifier, "12", ""}}));
  EXPECT_EQ(tasti("=1#2O3TzxGjJc"), (Tasti{{Key::Subtotal, "", ""},
                                           {Key::Code, "1", ""},
                                           {Key::Operator, "2", ""},
                                           {Key::Payment, "3", ""},
                                           {Key::Zeroing, "", ""},
                                           {Key::Reading, "", ""},
                                           {Key::ShowQuantity, "", ""},
                                           {Key::OpenNonFiscal, "", ""},
                                           {Key::CloseNonFiscal, "", ""},
                                           {Key::Clear, "", ""}}));
}

TEST(LettoreDiTasti, IlTestoStaFraVirgoletteConTuttoCioCheContiene) {
  EXPECT_EQ(tasti("\"A 1R c\"@"), (Tasti{{Key::Text, "", "A 1R c"}, {Key::Message, "", ""}}));
  EXPECT_EQ(tasti("\"\"@"), (Tasti{{Key::Text, "", ""}, {Key::Message, "", ""}}));
}

TEST(LettoreDiTasti, LaFunzioneEstesaPortaIlSuoArgomento) {
  EXPECT_EQ(tasti("X89F"), (Tasti{{Key::Extended, "89", ""}}));
  EXPECT_EQ(tasti("X\"000101991201\"10F"), (Tasti{{Key::Extended, "10", "000101991201"}}));
  EXPECT_EQ(tasti("XX89F"), (Tasti{Stroke{}, {Key::Extended, "89", ""}})) << "an X by noise swallows nothing";
  EXPECT_EQ(tasti("X8c"), Tasti(1));
  EXPECT_EQ(tasti("X\"1\"\"2\"10F").front(), Stroke{});
}

TEST(LettoreDiTasti, GliSpaziNonContanoFuoriDalTesto) {
  EXPECT_EQ(tasti(" 3 9F "), (Tasti{{Key::Function, "39", ""}}));
}

TEST(LettoreDiTasti, CioCheMancaOAvanzaNonEUnTasto) {
  for (const char* sbagliata : {"H", "R", "T", "5=", "5@", "5\"A", "q", "~", "\x80", "12345678901234567R"})
    EXPECT_EQ(tasti(sbagliata).front(), Stroke{}) << sbagliata;
  EXPECT_EQ(tasti("12345").size(), 0U) << "digits without their key";
  EXPECT_EQ(tasti("99999999999999999c"), (Tasti{{Key::Clear, "", ""}})) << "c takes no number";
}

TEST(LettoreDiTasti, UnTestoTroppoLungoFinisceAlleSueVirgolette) {
  // 36 characters, then 37.
  const std::vector<Stroke> lungo = tasti("\"CON 1R E c DENTRO, DI TRENTASEI LETT\"");
  ASSERT_EQ(lungo.size(), 1U);
  EXPECT_EQ(lungo[0].text, "CON 1R E c DENTRO, DI TRENTASEI LETT");
  const std::vector<Stroke> troppo = tasti("\"CON 1R E c DENTRO, DI TRENTASETTE LET\"c");
  ASSERT_EQ(troppo.size(), 2U) << "nothing inside it is a key";
  EXPECT_EQ(troppo[0].key, Key::Unknown);
  EXPECT_EQ(troppo[1].key, Key::Clear);
}

TEST(LettoreDiTasti, UnTestoSenzaFineEUnTastoSconosciuto) {
  EXPECT_EQ(tasti("1R\"PROVA"), (Tasti{{Key::Department, "1", ""}, Stroke{}}));
  EXPECT_EQ(tasti("X\"0001"), Tasti(1));
}

TEST(Importi, ConLaVirgolaComeSonoScrittiSenzaInCentesimi) {
  EXPECT_EQ(amountOf("123"), 123);
  EXPECT_EQ(amountOf("1,00"), 100);
  EXPECT_EQ(amountOf("1,5"), 150);
  EXPECT_EQ(amountOf("999999999"), 999999999);
  EXPECT_EQ(amountOf("9999999,99"), 999999999);
  for (const char* no : {"", ",", ",5", "5,", "1,234", "1,2,3", "1000000000", "10000000,00"})
    EXPECT_EQ(amountOf(no), std::nullopt) << no;
}

TEST(Importi, SiArrotondanoPerEccessoDaMezzoCentesimo) {
  EXPECT_EQ(proportion(1, 1, 2), 1);
  EXPECT_EQ(proportion(-1, 1, 2), -1);
  EXPECT_EQ(proportion(1000, 525, 10000), 53);
  EXPECT_EQ(proportion(100, 525, 10000), 5);
  EXPECT_EQ(proportion(333, 333, 1000), 111);
}

TEST(Importi, SiScrivonoConDueDecimaliELeQuantitaConQuelliCheServono) {
  EXPECT_EQ(euro(0), "0,00");
  EXPECT_EQ(euro(-5), "-0,05");
  EXPECT_EQ(euro(123456), "1234,56");
  EXPECT_EQ(quantity(10000), "10");
  EXPECT_EQ(quantity(4500), "4,5");
  EXPECT_EQ(quantity(1005), "1,005");
}
