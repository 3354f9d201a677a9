#include "config/department_attributes.h"

#include <gtest/gtest.h>

#include "platform/error.h"

using config::AttributiReparto;
using config::imballaAttributi;
using config::sballaAttributi;

namespace {
AttributiReparto attributi(int iva, const char* singola, const char* tipo, int tallon) {
  return {iva, QString::fromLatin1(singola), QString::fromLatin1(tipo), tallon};
}
}  // namespace

TEST(AttributiReparto, OgniParteHaISuoiBit) {
  EXPECT_EQ(imballaAttributi(attributi(1, "N", "S", 1)), 0);
  EXPECT_EQ(imballaAttributi(attributi(8, "N", "S", 1)), 7);
  EXPECT_EQ(imballaAttributi(attributi(1, "S", "S", 1)), 8);
  EXPECT_EQ(imballaAttributi(attributi(1, "N", "M", 1)), 16);
  EXPECT_EQ(imballaAttributi(attributi(1, "N", "S", 2)), 32);
  EXPECT_EQ(imballaAttributi(attributi(8, "S", "M", 8)), 255);
}

TEST(AttributiReparto, TuttoCioCheNonESContaComeNo) {
  for (const char* altro : {"N", "s", "", " S", "SI", "M"}) {
    EXPECT_EQ(imballaAttributi(attributi(1, altro, "S", 1)), 0) << altro;
    EXPECT_EQ(imballaAttributi(attributi(1, "N", altro, 1)), 16) << altro;
  }
}

TEST(AttributiReparto, OgniByteVaETorna) {
  for (int byte = 0; byte < 256; ++byte)
    EXPECT_EQ(imballaAttributi(sballaAttributi(static_cast<std::uint8_t>(byte))), byte);
}

TEST(AttributiReparto, SballaInColonne) {
  EXPECT_EQ(sballaAttributi(0), attributi(1, "N", "S", 1));
  EXPECT_EQ(sballaAttributi(0b011'1'1'101), attributi(6, "S", "M", 4));
}

TEST(AttributiReparto, UnaSommaFuoriDalByteEOverflow) {
  for (const AttributiReparto& fuori : {attributi(0, "N", "S", 1), attributi(1, "N", "S", 9)}) {
    try {
      imballaAttributi(fuori);
      ADD_FAILURE();
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, errors::kOverflow);
    }
  }
}
