#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "devices/loaded_library.h"

namespace {

constexpr std::uint32_t kSecondiAlGiorno = 86400;

struct DataOra : testing::Test {
  std::string testo(std::uint32_t valore) const {
    std::array<char, 80> buffer;
    buffer.fill('#');
    libreria.ecr_oro_encode(valore, buffer.data());
    EXPECT_EQ(buffer[17], '\0');
    EXPECT_EQ(buffer[18], '#');
    return buffer.data();
  }

  Library libreria;
};

std::string previsto(int giorno, int mese, int anno, int ore, int minuti, int secondi) {
  std::array<char, 80> buffer;
  std::snprintf(buffer.data(), buffer.size(), "%02d/%02d/%02d %02d:%02d:%02d", giorno, mese, anno, ore,
                minuti, secondi);
  return buffer.data();
}

}  // namespace

TEST_F(DataOra, OgniGiornoDiOgniAnnoTornaComeEra) {
  for (int anno = 0; anno < 100; ++anno)
    for (int mese = 1; mese <= 12; ++mese)
      for (int giorno = 1; giorno <= 28; ++giorno)
        ASSERT_EQ(testo(libreria.ecr_date_decode(giorno, mese, anno)), previsto(giorno, mese, anno, 0, 0, 0));
}

TEST_F(DataOra, GiornoEMeseTornanoConAnnoZero) {
  EXPECT_EQ(testo(libreria.ecr_dates_decode(31, 12)), "31/12/00 00:00:00");
  EXPECT_EQ(testo(libreria.ecr_dates_decode(29, 2)), "29/02/00 00:00:00");
}

TEST_F(DataOra, OgniSecondoDelGiornoTornaComeEra) {
  for (int secondo = 0; secondo < static_cast<int>(kSecondiAlGiorno); ++secondo) {
    const int ore = secondo / 3600;
    const int minuti = secondo / 60 % 60;
    ASSERT_EQ(testo(libreria.ecr_time_decode(ore, minuti, secondo % 60)),
              previsto(0, 0, 0, ore, minuti, secondo % 60));
  }
}

TEST_F(DataOra, UnaDataPiuUnOraEUnMomentoSolo) {
  const std::uint32_t momento = libreria.ecr_date_decode(7, 3, 26) + libreria.ecr_time_decode(18, 5, 59);
  EXPECT_EQ(testo(momento), "07/03/26 18:05:59");
}

TEST_F(DataOra, IlNumeroHaLaFormaFissata) {
  EXPECT_EQ(libreria.ecr_date_decode(1, 1, 0), (1U * 32 + 1) * kSecondiAlGiorno);
  EXPECT_EQ(libreria.ecr_date_decode(31, 12, 99), ((99U * 13 + 12) * 32 + 31) * kSecondiAlGiorno);
  EXPECT_EQ(libreria.ecr_time_decode(1, 2, 3), 3723U);
}

TEST_F(DataOra, IMomentiCresconoColTempo) {
  EXPECT_LT(libreria.ecr_date_decode(31, 1, 26), libreria.ecr_date_decode(1, 2, 26));
  EXPECT_LT(libreria.ecr_date_decode(31, 12, 25), libreria.ecr_date_decode(1, 1, 26));
}

TEST_F(DataOra, CioCheNonEUnaDataEZero) {
  EXPECT_EQ(libreria.ecr_date_decode(0, 1, 26), 0U);
  EXPECT_EQ(libreria.ecr_date_decode(32, 1, 26), 0U);
  EXPECT_EQ(libreria.ecr_date_decode(31, 4, 26), 0U);
  EXPECT_EQ(libreria.ecr_date_decode(1, 0, 26), 0U);
  EXPECT_EQ(libreria.ecr_date_decode(1, 13, 26), 0U);
  EXPECT_EQ(libreria.ecr_date_decode(1, 1, -1), 0U);
  EXPECT_EQ(libreria.ecr_date_decode(1, 1, 100), 0U);
  EXPECT_EQ(libreria.ecr_dates_decode(30, 2), 0U);
  EXPECT_EQ(libreria.ecr_dates_decode(-1, -1), 0U);
  EXPECT_EQ(libreria.ecr_time_decode(24, 0, 0), 0U);
  EXPECT_EQ(libreria.ecr_time_decode(0, 60, 0), 0U);
  EXPECT_EQ(libreria.ecr_time_decode(0, 0, -1), 0U);
}

TEST_F(DataOra, IlVentinoveFebbraioVuoleUnAnnoBisestile) {
  EXPECT_NE(libreria.ecr_date_decode(29, 2, 24), 0U);
  EXPECT_NE(libreria.ecr_date_decode(29, 2, 0), 0U);
  EXPECT_EQ(libreria.ecr_date_decode(29, 2, 23), 0U);
}

TEST_F(DataOra, ZeroEINumeriOltreIMomentiSiScrivonoComeNessunaData) {
  EXPECT_EQ(testo(0), "00/00/00 00:00:00");
  EXPECT_EQ(testo(100U * 13 * 32 * kSecondiAlGiorno), "00/00/00 00:00:00");
  EXPECT_EQ(testo(UINT32_MAX), "00/00/00 00:00:00");
  EXPECT_EQ(testo(100U * 13 * 32 * kSecondiAlGiorno - 1), "31/12/99 23:59:59");
}

TEST_F(DataOra, UnTestoNulloNonSiTocca) {
  libreria.ecr_oro_encode(1, nullptr);
}
