#include "core/figures.h"

#include <gtest/gtest.h>

#include <limits>

#include "sostegno/troubles.h"

TEST(Cifre, SonoItalianeQualunqueSiaIlPC) {
  for (const char* locale : {"C", "it_IT", "en_US"}) {
    const WithLocale questo(locale);
    EXPECT_EQ(cifra(0), QStringLiteral("0"));
    EXPECT_EQ(cifra(5000), QStringLiteral("5.000"));
    EXPECT_EQ(cifra(-1234567), QStringLiteral("-1.234.567"));
    EXPECT_EQ(euro(215), QStringLiteral("€\u00A02,15"));
    EXPECT_EQ(euro(5), QStringLiteral("€\u00A00,05"));
    EXPECT_EQ(euro(123450), QStringLiteral("€\u00A01.234,50"));
    EXPECT_EQ(euro(-5), QStringLiteral("€\u00A0-0,05"));
    EXPECT_EQ(euro(0), QStringLiteral("€\u00A00,00"));
  }
}

TEST(Cifre, GliEuroNonPerdonoCentesimiDoveUnNumeroRealeLiPerderebbe) {
  EXPECT_EQ(euro(9'007'199'254'740'993), QStringLiteral("€\u00A090.071.992.547.409,93"));
  EXPECT_EQ(euro(std::numeric_limits<qint64>::min()), QStringLiteral("€\u00A0-92.233.720.368.547.758,08"));
}

TEST(Cifre, IlSegnoDellEuroNonVaACapoSenzaLImporto) {
  EXPECT_EQ(euro(100).at(1), QChar(QChar::Nbsp));
  EXPECT_FALSE(euro(100).contains(u' '));
}

TEST(Cifre, UnoESingolare) {
  const auto articoli = [](qint64 n) {
    return quanti(n, QStringLiteral("articolo"), QStringLiteral("articoli"));
  };
  EXPECT_EQ(articoli(0), QStringLiteral("0 articoli"));
  EXPECT_EQ(articoli(1), QStringLiteral("1 articolo"));
  EXPECT_EQ(articoli(5000), QStringLiteral("5.000 articoli"));
}
