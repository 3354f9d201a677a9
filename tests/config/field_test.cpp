#include "config/field.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>

#include "config/pinned_fields.h"
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
    case Tipo::SenzaSegno16:
      return ::record::scriviSenzaSegno16(record, campo, 0xC0FF);
    case Tipo::Intero32:
      return scriviIntero(record, campo, -1250);
    case Tipo::SenzaSegno32:
      return scriviSenzaSegno(record, campo, 0x80C0FFEE);
    case Tipo::TestoPieno:
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
    case Tipo::SenzaSegno16:
      ::record::leggiSenzaSegno16(record, campo);
      return;
    case Tipo::Intero32:
      leggiIntero(record, campo);
      return;
    case Tipo::SenzaSegno32:
      leggiSenzaSegno(record, campo);
      return;
    case Tipo::TestoPieno:
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

class OgniRecord : public testing::TestWithParam<RecordAtteso> {};
class OgniCampo : public testing::TestWithParam<PostoInRecord> {};
class OgniTesto : public testing::TestWithParam<PostoInRecord> {};

constexpr auto kNome = [](const auto& caso) { return nomeDelCaso(caso.param); };

void verifica(const Campo& campo, const Posto& previsto) {
  EXPECT_EQ(campo.nome, previsto.nome);
  EXPECT_EQ(campo.inizio, previsto.inizio);
  EXPECT_EQ(campo.larghezza, previsto.larghezza);
  EXPECT_EQ(campo.tipo, previsto.tipo);
  EXPECT_EQ(campo.limite, previsto.limite);
}

}  // namespace

TEST_P(OgniRecord, HaISuoiCampiAiLoroPostiConILoroLimiti) {
  const RecordAtteso& record = GetParam();
  EXPECT_EQ(record.byteDichiarati, record.byte);
  ASSERT_EQ(record.tabella.size(), record.posti.size());
  for (std::size_t i = 0; i < record.posti.size(); ++i) {
    const Posto& posto = record.posti[i];
    SCOPED_TRACE(posto.nome + " at " + std::to_string(posto.inizio));
    verifica(posto.campo, posto);
    verifica(record.tabella[i], posto);
  }
}

TEST_P(OgniCampo, ScriverloLasciaIntattiIByteFuori) {
  const auto& [nome, byte, posto] = GetParam();
  Byte record = vecchi(byte);
  scriviQualcosa(record, posto.campo);
  EXPECT_EQ(toccatiFuori(record, posto.inizio, posto.inizio + posto.larghezza), 0U);
  if (posto.tipo == Tipo::Riservato)
    EXPECT_EQ(record, vecchi(byte));
  else
    EXPECT_NE(record[posto.inizio], kVecchio);
}

TEST_P(OgniCampo, OgniLunghezzaInsufficienteFallisceESenzaScrivereNulla) {
  const Posto& posto = GetParam().posto;
  const std::size_t fine = posto.inizio + posto.larghezza;
  if (posto.tipo == Tipo::Riservato) {
    EXPECT_LE(fine, GetParam().byte);
    return;
  }
  for (std::size_t lungo = 0; lungo < fine; ++lungo) {
    Byte record = vecchi(lungo);
    EXPECT_EQ(numeroDi([&] { scriviQualcosa(record, posto.campo); }), errors::kOutOfRange) << lungo;
    EXPECT_EQ(numeroDi([&] { leggiQualcosa(record, posto.campo); }), errors::kOutOfRange) << lungo;
    EXPECT_EQ(record, vecchi(lungo));
  }
  Byte giusto = vecchi(fine);
  EXPECT_EQ(numeroDi([&] { scriviQualcosa(giusto, posto.campo); }), 0);
}

TEST_P(OgniTesto, AlLimitePassaIntero) {
  const auto& [nome, byte, posto] = GetParam();
  Byte record = vecchi(byte);
  const QString testo(static_cast<qsizetype>(posto.limite), QLatin1Char('k'));
  scriviTesto(record, posto.campo, testo);
  EXPECT_EQ(leggiTesto(record, posto.campo), testo);
  EXPECT_EQ(std::ranges::count(record, 'k'), static_cast<std::ptrdiff_t>(posto.limite));
  EXPECT_EQ(record[posto.inizio + posto.limite], 0);
  EXPECT_EQ(toccatiFuori(record, posto.inizio, posto.inizio + posto.limite + 1), 0U);
}

TEST_P(OgniTesto, OltreIlLimiteVieneTagliato) {
  const auto& [nome, byte, posto] = GetParam();
  Byte record = vecchi(byte);
  scriviTesto(record, posto.campo, QString(static_cast<qsizetype>(posto.limite) + 1, QLatin1Char('k')));
  EXPECT_EQ(leggiTesto(record, posto.campo), QString(static_cast<qsizetype>(posto.limite), QLatin1Char('k')));
  EXPECT_EQ(toccatiFuori(record, posto.inizio, posto.inizio + posto.limite + 1), 0U);
}

TEST_P(OgniTesto, PiuCortoLasciaIByteVecchiDietroIlSuoZero) {
  const auto& [nome, byte, posto] = GetParam();
  Byte record = vecchi(byte);
  scriviTesto(record, posto.campo, QStringLiteral("z"));
  EXPECT_EQ(record[posto.inizio], 'z');
  EXPECT_EQ(record[posto.inizio + 1], 0);
  EXPECT_EQ(toccatiFuori(record, posto.inizio, posto.inizio + 2), 0U);
  EXPECT_EQ(leggiTesto(record, posto.campo), QStringLiteral("z"));
}

TEST_P(OgniTesto, VuotoScriveIlSoloZero) {
  const auto& [nome, byte, posto] = GetParam();
  Byte record = vecchi(byte);
  scriviTesto(record, posto.campo, QString());
  EXPECT_EQ(record[posto.inizio], 0);
  EXPECT_EQ(toccatiFuori(record, posto.inizio, posto.inizio + 1), 0U);
  EXPECT_TRUE(leggiTesto(record, posto.campo).isEmpty());
}

TEST_P(OgniTesto, SenzaZeroSiLeggeFinoAllaFineDelCampo) {
  const auto& [nome, byte, posto] = GetParam();
  Byte record(byte, 'q');
  std::fill_n(record.begin() + static_cast<std::ptrdiff_t>(posto.inizio), posto.larghezza, 'p');
  EXPECT_EQ(leggiTesto(record, posto.campo),
            QString(static_cast<qsizetype>(posto.larghezza), QLatin1Char('p')));
}

INSTANTIATE_TEST_SUITE_P(Programma, OgniRecord, testing::ValuesIn(recordAttesi()), kNome);
INSTANTIATE_TEST_SUITE_P(Programma, OgniCampo, testing::ValuesIn(tuttiIPosti()), kNome);
INSTANTIATE_TEST_SUITE_P(Programma, OgniTesto, testing::ValuesIn(tuttiIPosti(Tipo::CampoTesto)), kNome);

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
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 4, Tipo::Intero32}, {"b", 3, 1, Tipo::Byte}}, 4)) << "overlap";
  EXPECT_FALSE(coerente(Tabella{{"a", 4, 4, Tipo::Intero32}, {"b", 0, 4, Tipo::Intero32}}, 8))
      << "out of order";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 2, Tipo::Byte}}, 2)) << "a byte of two";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 2, Tipo::Flag}}, 2)) << "a flag of two";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 3, Tipo::SenzaSegno32}}, 3)) << "a number of three";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 8, Tipo::Intero32}}, 8)) << "a number of eight";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 0, Tipo::Riservato}}, 0)) << "no width";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 5, Tipo::CampoTesto}}, 5)) << "a text without a limit";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 5, Tipo::CampoTesto, 5}}, 5)) << "no room for the NUL";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 5, Tipo::CampoTesto, 5}, {"b", 5, 1, Tipo::Byte}}, 6))
      << "NUL in a field";
  EXPECT_TRUE(coerente(Tabella{{"a", 0, 5, Tipo::CampoTesto, 5}, {"b", 5, 1, Tipo::Riservato}}, 6));
}

TEST(Coerente, RifiutaUnRecordCheICampiNonCopronoTutto) {
  using Tabella = std::vector<Campo>;
  EXPECT_FALSE(coerente(Tabella{{"a", 1, 1, Tipo::Flag}}, 2)) << "before the first";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 1, Tipo::Flag}, {"b", 2, 1, Tipo::Flag}}, 3)) << "between two";
  EXPECT_FALSE(coerente(Tabella{{"a", 0, 1, Tipo::Flag}}, 2)) << "behind the last";
  EXPECT_FALSE(coerente(Tabella{}, 1)) << "no field at all";
  EXPECT_TRUE(
      coerente(Tabella{{"a", 0, 1, Tipo::Flag}, {"b", 1, 1, Tipo::Riservato}, {"c", 2, 1, Tipo::Flag}}, 3));
}
