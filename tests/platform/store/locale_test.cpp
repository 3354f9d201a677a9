// The decimal sign of the system's language must not reach the statements.

#include <clocale>

#include "platform/store/test_archive.h"

namespace {

class Localita : public ArchiveOfTry, public testing::WithParamInterface<const char*> {
 protected:
  Localita() {
    if (std::setlocale(LC_ALL, GetParam()) == nullptr)
      ADD_FAILURE() << "locale " << GetParam() << " is missing: install the package locales-all";
  }
  ~Localita() override { std::setlocale(LC_ALL, "C"); }
};

TEST_P(Localita, INumeriDecimaliPassanoInteri) {
  run("CREATE TABLE T (r REAL, t TEXT)");
  run("INSERT INTO T VALUES (1234.5, '1234.5')");
  auto righe = read("SELECT r, t FROM T WHERE r > 1234.25 AND r < 1234.75");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_DOUBLE_EQ(righe.field(0).real(), 1234.5);
  EXPECT_EQ(righe.field(0).text(), QStringLiteral("1234.5"));
  EXPECT_DOUBLE_EQ(righe.field(1).real(), 1234.5);
}

TEST_P(Localita, LaSommaDiControlloSiRitrova) {
  run("INSERT INTO TAB_EAN_NUMERICI (Codice_EAN,Codice_EAN_Num,Index,Spare) Values ('80',4294967295,12,'');");
  EXPECT_EQ(run("UPDATE TAB_EAN_NUMERICI SET Index = -1 WHERE Codice_Ean_num = 4294967295;"), 1);
  EXPECT_EQ(value("SELECT Codice_EAN_Num from TAB_EAN_NUMERICI"), QStringLiteral("4294967295"));
}

TEST_P(Localita, LeMaiuscoleNonDipendonoDallaLingua) {
  run("UPDATE TAB_ARTICOLI SET Descrizione = 'INIZIO' WHERE auto_id=1");
  EXPECT_EQ(read("SELECT auto_id FROM TAB_ARTICOLI WHERE descrizione LIKE 'inizi*'").RecordCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(Lingue, Localita, testing::Values("C", "it_IT.UTF-8", "tr_TR.UTF-8", "de_DE.UTF-8"));

}  // namespace
