#include "core/record_field.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "platform/error.h"

using namespace record;

namespace {

using Byte = std::vector<std::uint8_t>;

constexpr Campo kPieno{"pieno", 1, 4, Tipo::TestoPieno, 4};
constexpr Campo kCorto{"corto", 1, 2, Tipo::SenzaSegno16};

Byte scritto(const QString& testo) {
  Byte record(6, 0xA5);
  scriviTesto(record, kPieno, testo);
  return record;
}

}  // namespace

TEST(TestoPieno, LungoComeIlCampoNonHaZero) {
  EXPECT_EQ(scritto(QStringLiteral("ABCD")), (Byte{0xA5, 'A', 'B', 'C', 'D', 0xA5}));
}

TEST(TestoPieno, PiuLungoSiTagliaAlCampo) {
  EXPECT_EQ(scritto(QStringLiteral("ABCDE")), (Byte{0xA5, 'A', 'B', 'C', 'D', 0xA5}));
}

TEST(TestoPieno, PiuCortoHaIlSuoZeroEDietroRestaCioCheCEra) {
  EXPECT_EQ(scritto(QStringLiteral("AB")), (Byte{0xA5, 'A', 'B', 0, 0xA5, 0xA5}));
}

TEST(TestoPieno, SenzaZeroSiLeggeInteroEConLoZeroFinoALui) {
  EXPECT_EQ(leggiTesto(Byte{'x', 'A', 'B', 'C', 'D', 'y'}, kPieno), QStringLiteral("ABCD"));
  EXPECT_EQ(leggiTesto(Byte{'x', 'A', 0, 'C', 'D', 'y'}, kPieno), QStringLiteral("A"));
}

TEST(TestoPieno, UnaTabellaConUnLimiteDiversoDallaLarghezzaNonECoerente) {
  constexpr std::array kBuona{Campo{"testo", 0, 4, Tipo::TestoPieno, 4}};
  constexpr std::array kSbagliata{Campo{"testo", 0, 4, Tipo::TestoPieno, 3}};
  EXPECT_TRUE(coerente(kBuona, 4));
  EXPECT_FALSE(coerente(kSbagliata, 4));
}

TEST(SenzaSegno16, VaInDueByteDalMenoSignificativo) {
  Byte record(4, 0xA5);
  scriviSenzaSegno16(record, kCorto, 0xFFFE);
  EXPECT_EQ(record, (Byte{0xA5, 0xFE, 0xFF, 0xA5}));
  EXPECT_EQ(leggiSenzaSegno16(record, kCorto), 0xFFFE);
}

TEST(SenzaSegno16, UnRecordCortoFallisce) {
  EXPECT_THROW(leggiSenzaSegno16(Byte(2), kCorto), Errore);
}

TEST(SenzaSegno16, UnaTabellaConUnAltraLarghezzaNonECoerente) {
  constexpr std::array kSbagliata{Campo{"numero", 0, 3, Tipo::SenzaSegno16}};
  EXPECT_FALSE(coerente(kSbagliata, 3));
}
