#include "config/field.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "config/all_fields.h"
#include "platform/error.h"

using namespace config;

namespace {

constexpr std::uint8_t kVecchio = 0xA5;
using Byte = std::vector<std::uint8_t>;

Byte vecchi(std::size_t quanti) {
  return Byte(quanti, kVecchio);
}

/// What a field writer of the field's kind leaves in a record of old bytes.
void scriviQualcosa(Record record, const Campo& campo) {
  switch (campo.tipo) {
    case Tipo::Flag:
      return scriviFlag(record, campo, true);
    case Tipo::Byte:
      return scriviByte(record, campo, 0x5A);
    case Tipo::Intero32:
      return scriviIntero(record, campo, -1250);
    case Tipo::SenzaSegno32:
      return scriviSenzaSegno(record, campo, 0x80C0FFEE);
    case Tipo::CampoTesto:
      return scriviTesto(record, campo, QStringLiteral("x"));
    case Tipo::Riservato:
      return;
  }
}

void leggiQualcosa(RecordLetto record, const Campo& campo) {
  switch (campo.tipo) {
    case Tipo::Flag:
      leggiFlag(record, campo);
      return;
    case Tipo::Byte:
      leggiByte(record, campo);
      return;
    case Tipo::Intero32:
      leggiIntero(record, campo);
      return;
    case Tipo::SenzaSegno32:
      leggiSenzaSegno(record, campo);
      return;
    case Tipo::CampoTesto:
      leggiTesto(record, campo);
      return;
    case Tipo::Riservato:
      return;
  }
}

int numeroDi(const std::function<void()>& passo) {
  try {
    passo();
    return 0;
  } catch (const Errore& errore) {
    return errore.numero;
  }
}

/// Bytes of the record outside [da, a) that are no longer the old ones.
std::size_t toccatiFuori(const Byte& record, std::size_t da, std::size_t a) {
  std::size_t toccati = 0;
  for (std::size_t i = 0; i < record.size(); ++i)
    if ((i < da || i >= a) && record[i] != kVecchio) ++toccati;
  return toccati;
}

class OgniCampo : public testing::TestWithParam<CampoInRecord> {};
class OgniTesto : public testing::TestWithParam<CampoInRecord> {};

}  // namespace

TEST_P(OgniCampo, ScriverloLasciaIntattiIByteFuori) {
  const auto& [nome, byte, campo] = GetParam();
  Byte record = vecchi(byte);
  scriviQualcosa(record, campo);
  EXPECT_EQ(toccatiFuori(record, campo.inizio, campo.inizio + campo.larghezza), 0U);
  if (campo.tipo == Tipo::Riservato)
    EXPECT_EQ(record, vecchi(byte));
  else
    EXPECT_NE(record, vecchi(byte));
}

TEST_P(OgniCampo, OgniLunghezzaInsufficienteFallisceESenzaScrivereNulla) {
  const auto& [nome, byte, campo] = GetParam();
  if (campo.tipo == Tipo::Riservato) {
    EXPECT_LE(campo.inizio + campo.larghezza, byte);
    return;
  }
  for (std::size_t lungo = 0; lungo < campo.inizio + campo.larghezza; ++lungo) {
    Byte record = vecchi(lungo);
    EXPECT_EQ(numeroDi([&] { scriviQualcosa(record, campo); }), errors::kOutOfRange) << lungo;
    EXPECT_EQ(numeroDi([&] { leggiQualcosa(record, campo); }), errors::kOutOfRange) << lungo;
    EXPECT_EQ(record, vecchi(lungo));
  }
  Byte giusto = vecchi(campo.inizio + campo.larghezza);
  EXPECT_EQ(numeroDi([&] { scriviQualcosa(giusto, campo); }), 0);
}

TEST_P(OgniTesto, AlLimitePassaIntero) {
  const auto& [nome, byte, campo] = GetParam();
  Byte record = vecchi(byte);
  const QString testo(static_cast<qsizetype>(campo.limite), QLatin1Char('k'));
  scriviTesto(record, campo, testo);
  EXPECT_EQ(leggiTesto(record, campo), testo);
  EXPECT_EQ(record[campo.inizio + campo.limite], 0);
  EXPECT_EQ(toccatiFuori(record, campo.inizio, campo.inizio + campo.limite + 1), 0U);
}

TEST_P(OgniTesto, OltreIlLimiteVieneTagliato) {
  const auto& [nome, byte, campo] = GetParam();
  Byte record = vecchi(byte);
  scriviTesto(record, campo, QString(static_cast<qsizetype>(campo.limite) + 1, QLatin1Char('k')));
  EXPECT_EQ(leggiTesto(record, campo), QString(static_cast<qsizetype>(campo.limite), QLatin1Char('k')));
  EXPECT_EQ(toccatiFuori(record, campo.inizio, campo.inizio + campo.limite + 1), 0U);
}

TEST_P(OgniTesto, PiuCortoLasciaIByteVecchiDietroIlSuoZero) {
  const auto& [nome, byte, campo] = GetParam();
  Byte record = vecchi(byte);
  scriviTesto(record, campo, QStringLiteral("z"));
  EXPECT_EQ(record[campo.inizio], 'z');
  EXPECT_EQ(record[campo.inizio + 1], 0);
  EXPECT_EQ(toccatiFuori(record, campo.inizio, campo.inizio + 2), 0U);
  EXPECT_EQ(leggiTesto(record, campo), QStringLiteral("z"));
}

TEST_P(OgniTesto, VuotoScriveIlSoloZero) {
  const auto& [nome, byte, campo] = GetParam();
  Byte record = vecchi(byte);
  scriviTesto(record, campo, QString());
  EXPECT_EQ(record[campo.inizio], 0);
  EXPECT_EQ(toccatiFuori(record, campo.inizio, campo.inizio + 1), 0U);
  EXPECT_TRUE(leggiTesto(record, campo).isEmpty());
}

TEST_P(OgniTesto, SenzaZeroSiLeggeFinoAllaFineDelCampo) {
  const auto& [nome, byte, campo] = GetParam();
  const Byte record(byte, 'p');
  EXPECT_EQ(leggiTesto(record, campo), QString(static_cast<qsizetype>(campo.larghezza), QLatin1Char('p')));
}

INSTANTIATE_TEST_SUITE_P(Programma, OgniCampo, testing::ValuesIn(tuttiICampi()));
INSTANTIATE_TEST_SUITE_P(Programma, OgniTesto, testing::ValuesIn(tuttiICampi(Tipo::CampoTesto)));

TEST(Campo, UnInteroStaInQuattroByteDalMenoSignificativo) {
  constexpr Campo kCampo{"prova", 1, 4, Tipo::Intero32};
  Byte record = vecchi(6);
  scriviIntero(record, kCampo, 0x01020304);
  EXPECT_EQ(record, (Byte{kVecchio, 4, 3, 2, 1, kVecchio}));
  EXPECT_EQ(leggiIntero(record, kCampo), 0x01020304);
}

TEST(Campo, UnInteroNegativoEInComplementoADue) {
  constexpr Campo kCampo{"prova", 0, 4, Tipo::Intero32};
  Byte record = vecchi(4);
  scriviIntero(record, kCampo, -1250);
  EXPECT_EQ(record, (Byte{0x1E, 0xFB, 0xFF, 0xFF}));
  EXPECT_EQ(leggiIntero(record, kCampo), -1250);
}

TEST(Campo, GliEstremiDegliInteriVannoETornano) {
  constexpr Campo kCampo{"prova", 0, 4, Tipo::Intero32};
  Byte record = vecchi(4);
  for (const std::int32_t valore :
       {std::numeric_limits<std::int32_t>::min(), -1, 0, 1, std::numeric_limits<std::int32_t>::max()}) {
    scriviIntero(record, kCampo, valore);
    EXPECT_EQ(leggiIntero(record, kCampo), valore);
  }
  scriviSenzaSegno(record, kCampo, 0xFFFFFFFF);
  EXPECT_EQ(leggiSenzaSegno(record, kCampo), 0xFFFFFFFF);
}

TEST(Campo, UnFlagValeUnoOZero) {
  constexpr Campo kCampo{"prova", 0, 1, Tipo::Flag};
  Byte record = vecchi(1);
  scriviFlag(record, kCampo, true);
  EXPECT_EQ(record, Byte{1});
  EXPECT_TRUE(leggiFlag(record, kCampo));
  scriviFlag(record, kCampo, false);
  EXPECT_EQ(record, Byte{0});
  EXPECT_FALSE(leggiFlag(record, kCampo));
}

TEST(Campo, IlTestoVaInWindows1252UnByteACarattere) {
  constexpr Campo kCampo{"prova", 0, 12, Tipo::CampoTesto, 10};
  Byte record = vecchi(12);
  scriviTesto(record, kCampo, QStringLiteral("Caffè €1日"));
  EXPECT_EQ(record, (Byte{'C', 'a', 'f', 'f', 0xE8, ' ', 0x80, '1', '?', 0, kVecchio, kVecchio}));
  EXPECT_EQ(leggiTesto(record, kCampo), QStringLiteral("Caffè €1?"));
}

TEST(Campo, UnoZeroNelTestoLoChiude) {
  constexpr Campo kCampo{"prova", 0, 8, Tipo::CampoTesto, 6};
  Byte record = vecchi(8);
  scriviTesto(record, kCampo, std::string_view("AB\0C", 4));
  EXPECT_EQ(leggiTesto(record, kCampo), QStringLiteral("AB"));
}

TEST(Coerente, RifiutaLeTabelleSbagliate) {
  using Tabella = std::vector<Campo>;
  EXPECT_TRUE(coerente(Tabella{{"a", 0, 1, Tipo::Flag}, {"b", 1, 4, Tipo::Intero32}}, 5));
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 1, Tipo::Flag}, {"b", 1, 4, Tipo::Intero32}}, 4))
      << "outside the record";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 4, Tipo::Intero32}, {"b", 3, 1, Tipo::Byte}}, 9)) << "overlap";
  EXPECT_FALSE(coerente(Tabella{{"a", 4, 4, Tipo::Intero32}, {"b", 0, 1, Tipo::Byte}}, 9)) << "out of order";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 2, Tipo::Byte}}, 9)) << "a byte of two";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 3, Tipo::SenzaSegno32}}, 9)) << "a number of three";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 0, Tipo::Riservato}}, 9)) << "no width";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 5, Tipo::CampoTesto}}, 9)) << "a text without a limit";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 5, Tipo::CampoTesto, 5}}, 5)) << "no room for the NUL";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 5, Tipo::CampoTesto, 5}, {"b", 5, 1, Tipo::Byte}}, 6))
      << "NUL in a field";
  EXPECT_TRUE(coerente(Tabella{{"a", 0, 5, Tipo::CampoTesto, 5}, {"b", 5, 1, Tipo::Riservato}}, 6));
}
