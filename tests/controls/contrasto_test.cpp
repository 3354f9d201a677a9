#include "controls/contrasto.h"

#include <gtest/gtest.h>

using contrasto::fra;
using contrasto::leggibile;

TEST(Contrasto, VaDaUnoAVentuno) {
  EXPECT_NEAR(fra(Qt::white, Qt::black), 21.0, 0.01);
  EXPECT_NEAR(fra(Qt::red, Qt::red), 1.0, 0.01);
  EXPECT_DOUBLE_EQ(fra(Qt::red, Qt::blue), fra(Qt::blue, Qt::red));
}

TEST(Contrasto, UnColoreCheSiLeggeResta) {
  EXPECT_EQ(leggibile(Qt::blue, Qt::white), QColor(Qt::blue));
}

TEST(Contrasto, OgniColoreSiLeggeSuOgniFondo) {
  for (int fondo = 0; fondo < 27; ++fondo)
    for (int testo = 0; testo < 27; ++testo) {
      const auto tinta = [](int n) { return QColor(n / 9 * 127, n / 3 % 3 * 127, n % 3 * 127); };
      EXPECT_GE(fra(leggibile(tinta(testo), tinta(fondo)), tinta(fondo)), contrasto::kLeggibile)
          << testo << " on " << fondo;
    }
}
