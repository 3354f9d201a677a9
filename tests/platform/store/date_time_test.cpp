#include "platform/store/date_time.h"

#include <gtest/gtest.h>

namespace store {
namespace {

std::string ordinabile(std::string_view testo) {
  const auto momento = ReadDateTime(testo);
  return momento ? SortableForm(*momento) : "";
}

TEST(DataOra, LeFormeScritteDiventanoUnaSola) {
  EXPECT_EQ(ordinabile("05/03/24 10.20.30"), "2024-03-05 10:20:30");
  EXPECT_EQ(ordinabile("05/03/24 10:20:30"), "2024-03-05 10:20:30");
  EXPECT_EQ(ordinabile("5/3/2024"), "2024-03-05 00:00:00");
  EXPECT_EQ(ordinabile(" 05-03-2024 10:20 "), "2024-03-05 10:20:00");
  EXPECT_EQ(ordinabile("2024-03-05 10:20:30"), "2024-03-05 10:20:30");
}

TEST(DataOra, DueCifreDiAnnoSonoDiQuestoSecolo) {
  EXPECT_EQ(ordinabile("01/01/99"), "2099-01-01 00:00:00");
}

TEST(DataOra, IMomentiCheNonEsistonoSonoRifiutati) {
  for (const char* testo :
       {"", "x", "31/04/2024", "29/02/2023", "00/01/2024", "01/13/2024", "01/01/2024 24:00:00",
        "01/01/2024 10:60:00", "01/01/2024 10", "01/01/2024x", "01/01", "1/1/024"})
    EXPECT_EQ(ordinabile(testo), "") << testo;
  EXPECT_EQ(ordinabile("29/02/2024"), "2024-02-29 00:00:00");
}

TEST(DataOra, FormaItalianaConQuattroCifreDiAnno) {
  EXPECT_EQ(ItalianForm({2024, 3, 5, 1, 2, 3}), "05/03/2024 01:02:03");
}

TEST(DataOra, FormatRendeLeMaschereDelleIstruzioni) {
  const DateTime momento{2024, 3, 5, 1, 2, 9};
  EXPECT_EQ(FormatDateTime(momento, "yyyymmdd"), "20240305");
  EXPECT_EQ(FormatDateTime(momento, "dd/mm/yy hh:mm:ss"), "05/03/24 01.02.09");
  EXPECT_EQ(FormatDateTime(momento, "d/m/yyyy h:n:s"), "5/3/2024 1.2.9");
  EXPECT_EQ(FormatDateTime(momento, "DD-MM"), "05-03");
}

}  // namespace
}  // namespace store
