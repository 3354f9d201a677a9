// The decimal sign of the system's language must not reach the statements.

#include <clocale>

#include "platform/store/archivio_di_prova.h"

namespace {

class Localita : public ArchivioDiProva, public testing::WithParamInterface<const char*> {
 protected:
  Localita() {
    if (std::setlocale(LC_ALL, GetParam()) == nullptr)
      ADD_FAILURE() << "locale " << GetParam() << " is missing: install the package locales-all";
  }
  ~Localita() override { std::setlocale(LC_ALL, "C"); }
};

TEST_P(Localita, INumeriDecimaliPassanoInteri) {
  esegui("CREATE TABLE T (r REAL, t TEXT)");
  esegui("INSERT INTO T VALUES (1234.5, '1234.5')");
  auto righe = leggi("SELECT r, t FROM T WHERE r > 1234.25 AND r < 1234.75");
  ASSERT_EQ(righe.RecordCount(), 1);
  EXPECT_DOUBLE_EQ(righe.campo(0).doppio(), 1234.5);
  EXPECT_EQ(righe.campo(0).testo(), QStringLiteral("1234.5"));
  EXPECT_DOUBLE_EQ(righe.campo(1).doppio(), 1234.5);
}

TEST_P(Localita, LaSommaDiControlloSiRitrova) {
  esegui(
      "INSERT INTO TAB_EAN_NUMERICI (Codice_EAN,Codice_EAN_Num,Index,Spare) Values ('80',4294967295,12,'');");
  EXPECT_EQ(esegui("UPDATE TAB_EAN_NUMERICI SET Index = -1 WHERE Codice_Ean_num = 4294967295;"), 1);
  EXPECT_EQ(valore("SELECT Codice_EAN_Num from TAB_EAN_NUMERICI"), QStringLiteral("4294967295"));
}

TEST_P(Localita, LeMaiuscoleNonDipendonoDallaLingua) {
  esegui("UPDATE TAB_ARTICOLI SET Descrizione = 'INIZIO' WHERE auto_id=1");
  EXPECT_EQ(leggi("SELECT auto_id FROM TAB_ARTICOLI WHERE descrizione LIKE 'inizi*'").RecordCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(Lingue, Localita, testing::Values("C", "it_IT.UTF-8", "tr_TR.UTF-8", "de_DE.UTF-8"));

}  // namespace
