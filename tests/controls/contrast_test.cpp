#include "controls/contrast.h"

#include <gtest/gtest.h>

using contrast::between;
using contrast::readable;

TEST(Contrasto, VaDaUnoAVentuno) {
  EXPECT_NEAR(between(Qt::white, Qt::black), 21.0, 0.01);
  EXPECT_NEAR(between(Qt::red, Qt::red), 1.0, 0.01);
  EXPECT_DOUBLE_EQ(between(Qt::red, Qt::blue), between(Qt::blue, Qt::red));
}

TEST(Contrasto, UnColoreCheSiLeggeResta) {
  EXPECT_EQ(readable(Qt::blue, Qt::white), QColor(Qt::blue));
}

TEST(Contrasto, OgniColoreSiLeggeSuOgniFondo) {
  for (int fondo = 0; fondo < 27; ++fondo)
    for (int testo = 0; testo < 27; ++testo) {
      const auto tinta = [](int n) { return QColor(n / 9 * 127, n / 3 % 3 * 127, n % 3 * 127); };
      EXPECT_GE(between(readable(tinta(testo), tinta(fondo)), tinta(fondo)), contrast::kReadable)
          << testo << " on " << fondo;
    }
}
