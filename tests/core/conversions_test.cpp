#include "core/conversions.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <limits>

#include "platform/error.h"
#include "sostegno/troubles.h"

namespace {

template <typename Passo>
int numeroErrore(Passo passo) {
  try {
    passo();
  } catch (const Errore& errore) {
    return errore.numero;
  }
  return 0;
}

}  // namespace

TEST(Conversioni, CentInTestoScriveDueDecimali) {
  const WithLocale locale("C");
  EXPECT_EQ(CentInTesto(123), QStringLiteral("1.23"));
  EXPECT_EQ(CentInTesto(0), QStringLiteral("0.00"));
  EXPECT_EQ(CentInTesto(100000), QStringLiteral("1000.00"));
  EXPECT_EQ(CentInTesto(5), QStringLiteral("0.05"));
}

TEST(Conversioni, CentInTestoTieneIlSegnoAncheSottoLUnita) {
  const WithLocale locale("C");
  EXPECT_EQ(CentInTesto(-5), QStringLiteral("-0.05"));
  EXPECT_EQ(CentInTesto(-12345), QStringLiteral("-123.45"));
  EXPECT_EQ(CentInTesto(std::numeric_limits<std::int32_t>::min()), QStringLiteral("-21474836.48"));
  EXPECT_EQ(CentInTesto(std::numeric_limits<std::int32_t>::max()), QStringLiteral("21474836.47"));
}

TEST(Conversioni, CentInTestoPrendeIlSegnoDecimaleDellaPiattaforma) {
  for (const char* nome : {"it_IT", "de_DE"}) {
    const WithLocale locale(nome);
    EXPECT_EQ(CentInTesto(123456), QStringLiteral("1234,56")) << nome;
  }
}

TEST(Conversioni, TestoInValoreScriveIlPuntoNelTestoDelChiamante) {
  QString testo = QStringLiteral("12,50");
  EXPECT_EQ(TestoInValore(testo), 12.5);
  EXPECT_EQ(testo, QStringLiteral("12.50"));
}

TEST(Conversioni, TestoInValoreCambiaSoloLaPrimaVirgola) {
  QString testo = QStringLiteral("1,2,3");
  EXPECT_EQ(TestoInValore(testo), 1.2);
  EXPECT_EQ(testo, QStringLiteral("1.2,3"));
}

TEST(Conversioni, TestoInValoreLeggeIlNumeroInizialeOZero) {
  for (const auto& [scritto, previsto] :
       {std::pair{"", 0.0}, {"abc", 0.0}, {"12 pezzi", 12.0}, {"-0,5", -0.5}}) {
    QString testo = QLatin1String(scritto);
    EXPECT_EQ(TestoInValore(testo), previsto) << scritto;
  }
}

TEST(Conversioni, ValLeggeComeLaPiattaforma) {
  const std::pair<const char*, double> casi[] = {
      {"", 0},      {" 1 2 3", 123}, {"+7", 7},      {"-7x", -7},   {"--7", 0},     {"+-7", 0},
      {".5", 0.5},  {"5.", 5},       {".", 0},       {"-", 0},      {"1.2.3", 1.2}, {"1e3", 1000},
      {"1d2", 100}, {"1e", 1},       {"1e-2", 0.01}, {"e5", 0},     {"inf", 0},     {"nan", 0},
      {"1,5", 1},   {"0x10", 0},     {"- 3", -3},    {"1e-400", 0}, {"\t8\n1", 81}, {"€5", 0}};
  for (const auto& [testo, previsto] : casi) EXPECT_EQ(Val(QString::fromUtf8(testo)), previsto) << testo;
}

TEST(Conversioni, ValTroppoGrandeEErrore6) {
  EXPECT_EQ(numeroErrore([] { Val(QStringLiteral("1e400")); }), errors::kOverflow);
}

TEST(Conversioni, ValNonGuardaIlLocaleDelProcesso) {
  for (const char* nome : {"C", "it_IT.UTF-8", "de_DE.UTF-8"}) {
    ASSERT_NE(std::setlocale(LC_ALL, nome), nullptr) << nome;
    EXPECT_EQ(Val(QStringLiteral("1.5")), 1.5) << nome;
    EXPECT_EQ(TestoInCent(QStringLiteral("1,50")), 150) << nome;
    EXPECT_EQ(TestoInIntero16(QStringLiteral("1234")), 1234) << nome;
  }
  std::setlocale(LC_ALL, "");
  std::setlocale(LC_NUMERIC, "C");
}

TEST(Conversioni, LaMetaSiArrotondaAlPari) {
  EXPECT_EQ(InteroArrotondato(0.5), 0);
  EXPECT_EQ(InteroArrotondato(1.5), 2);
  EXPECT_EQ(InteroArrotondato(2.5), 2);
  EXPECT_EQ(InteroArrotondato(-0.5), 0);
  EXPECT_EQ(InteroArrotondato(-1.5), -2);
}

TEST(Conversioni, FuoriDaiTrentadueBitEErrore6) {
  EXPECT_EQ(InteroArrotondato(2147483647.4), 2147483647);
  EXPECT_EQ(InteroArrotondato(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  for (const double valore : {2147483647.5, -2147483649.0, 1e300, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()})
    EXPECT_EQ(numeroErrore([&] { InteroArrotondato(valore); }), errors::kOverflow) << valore;
}

TEST(Conversioni, TestoInCentNonToccaIlTestoEArrotonda) {
  const QString testo = QStringLiteral("12,50");
  EXPECT_EQ(TestoInCent(testo), 1250);
  EXPECT_EQ(testo, QStringLiteral("12,50"));
  EXPECT_EQ(TestoInCent(QStringLiteral("0,29")), 29);
  EXPECT_EQ(TestoInCent(QStringLiteral("-1.1")), -110);
  EXPECT_EQ(numeroErrore([] { TestoInCent(QStringLiteral("21474836,48")); }), errors::kOverflow);
}

TEST(Conversioni, TestoInIntero16ControllaNumeroEIntervallo) {
  const WithLocale locale("C");
  EXPECT_EQ(TestoInIntero16(QStringLiteral("192")), 192);
  EXPECT_EQ(TestoInIntero16(QStringLiteral(" 7 ")), 7);
  EXPECT_EQ(TestoInIntero16(QStringLiteral("-3")), -3);
  EXPECT_EQ(TestoInIntero16(QStringLiteral("32767")), 32767);
  for (const char* testo : {"", " ", "a", "12a", "1 2", "inf", "nan", "x1"})
    EXPECT_EQ(numeroErrore([&] { TestoInIntero16(QLatin1String(testo)); }), errors::kTypeMismatch) << testo;
  for (const char* testo : {"32768", "-32769", "99999999999999999999"})
    EXPECT_EQ(numeroErrore([&] { TestoInIntero16(QLatin1String(testo)); }), errors::kOverflow) << testo;
}

TEST(Conversioni, TestoInByteLasciaIByteDietro) {
  std::array<std::uint8_t, 4> byte{9, 9, 9, 9};
  TestoInByte(QStringLiteral("A€"), byte);
  EXPECT_EQ(byte, (std::array<std::uint8_t, 4>{'A', 0x80, 9, 9}));
}

TEST(Conversioni, TestoInByteInUnAreaCortaEErrore9ENonScriveNulla) {
  std::array<std::uint8_t, 2> byte{9, 9};
  EXPECT_EQ(numeroErrore([&] { TestoInByte(QStringLiteral("ABC"), byte); }), errors::kOutOfRange);
  EXPECT_EQ(byte, (std::array<std::uint8_t, 2>{9, 9}));
}

TEST(Conversioni, ByteInTestoSiFermaAlPrimoZero) {
  EXPECT_EQ(ByteInTesto(std::array<std::uint8_t, 4>{'A', 'B', 0, 'C'}), QStringLiteral("AB"));
  EXPECT_EQ(ByteInTesto(std::array<std::uint8_t, 2>{'A', 0x80}), QStringLiteral("A€"));
  EXPECT_EQ(ByteInTesto({}), QString());
}

TEST(Conversioni, BloccoInByteRidimensionaECopia) {
  const std::array<std::uint8_t, 4> blocco{1, 2, 3, 4};
  std::vector<std::uint8_t> array{9, 9, 9, 9, 9, 9};
  BloccoInByte(blocco.data(), blocco.size(), array);
  EXPECT_EQ(array, (std::vector<std::uint8_t>{1, 2, 3, 4}));
  BloccoInByte(blocco.data(), blocco.size(), array, 1);
  EXPECT_EQ(array, (std::vector<std::uint8_t>{1, 2, 3})) << "positions 1 to 3: no room for the last byte";
}

TEST(Conversioni, BloccoInByteSenzaPostiEErrore9) {
  std::vector<std::uint8_t> array;
  const std::uint8_t uno = 1;
  EXPECT_EQ(numeroErrore([&] { BloccoInByte(&uno, 0, array); }), errors::kOutOfRange);
  EXPECT_EQ(numeroErrore([&] { BloccoInByte(&uno, 1, array, 1); }), errors::kOutOfRange);
}

TEST(Conversioni, GliInteriSonoLittleEndianESegnati) {
  EXPECT_EQ(DueByteInIntero(std::array<std::uint8_t, 2>{0x34, 0x12}), 0x1234);
  EXPECT_EQ(DueByteInIntero(std::array<std::uint8_t, 2>{0xFF, 0xFF}), -1);
  EXPECT_EQ(QuattroByteInIntero(std::array<std::uint8_t, 4>{0x78, 0x56, 0x34, 0x12}), 0x12345678);
  EXPECT_EQ(QuattroByteInIntero(std::array<std::uint8_t, 4>{0, 0, 0, 0x80}),
            std::numeric_limits<std::int32_t>::min());
}

TEST(Conversioni, IByteMancantiSonoZeroEQuelliInPiuNonContano) {
  EXPECT_EQ(DueByteInIntero({}), 0);
  EXPECT_EQ(DueByteInIntero(std::array<std::uint8_t, 1>{7}), 7);
  EXPECT_EQ(QuattroByteInIntero(std::array<std::uint8_t, 2>{1, 1}), 257);
  EXPECT_EQ(DueByteInIntero(std::array<std::uint8_t, 3>{1, 0, 1}), 1);
}
