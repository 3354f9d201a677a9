#include "controls/contrast.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

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

TEST(Contrasto, TraIChiariEDoveSiLeggeIlFondoResta) {
  const QColor scuro(0x242C31);
  const QColor chiaro(0xE9EEF0);
  EXPECT_EQ(contrast::ground(QColor(255, 128, 0), Qt::white, Qt::black), QColor(255, 128, 0));
  EXPECT_EQ(contrast::ground(Qt::black, Qt::white, Qt::black), QColor(Qt::black)) << "a light window";
  EXPECT_EQ(contrast::ground(QColor(0, 0, 80), scuro, chiaro), QColor(0, 0, 80)) << "dark enough";
}

TEST(Contrasto, TraGliScuriOgniFondoLasciaLeggereIlTesto) {
  const QColor scuro(0x242C31);
  const QColor chiaro(0xE9EEF0);
  for (int fondo = 0; fondo < 27; ++fondo) {
    const QColor dato(fondo / 9 * 127, fondo / 3 % 3 * 127, fondo % 3 * 127);
    const QColor dipinto = contrast::ground(dato, scuro, chiaro);
    EXPECT_GE(between(chiaro, dipinto), contrast::kReadable) << fondo;
    if (dato.hslSaturation() > 0) {
      const int lontano = std::abs(dipinto.hslHue() - dato.hslHue());
      EXPECT_LE(std::min(lontano, 360 - lontano), 4) << fondo;
    }
  }
}
