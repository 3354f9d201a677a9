#include "editors/chosen_model.h"

#include <gtest/gtest.h>

#include "core/state.h"
#include "editors/utf8_text.h"
#include "platform/error.h"
#include "sostegno/program_fixture.h"

namespace {

/// As at process start before and behind.
struct ModelloScelto : testing::Test {
  ModelloScelto() { editors::azzeraModelloScelto(); }
  ~ModelloScelto() override { editors::azzeraModelloScelto(); }
  ProgramFixture bottega;
};

}  // namespace

TEST_F(ModelloScelto, OgniMacchinaHaLaSuaLarghezzaEISuoiTasti) {
  struct Attesa {
    int larghezza;
    const char* tasti;
  };
  constexpr Attesa kAttesi[] = {{24, "30"}, {24, "42"}, {24, "42"}, {24, "42"}, {24, "N/A"},
                                {24, "52"}, {24, "52"}, {24, "60"}, {24, "60"}, {26, "42"},
                                {26, "30"}, {36, "42"}, {36, "30"}};
  for (int indice = 0; indice < 13; ++indice) {
    editors::scegliModello(indice);
    EXPECT_EQ(varGestionePRG().LarghezzaRiga, kAttesi[indice].larghezza) << indice;
    EXPECT_EQ(editors::numeroTasti(), t(kAttesi[indice].tasti)) << indice;
    EXPECT_EQ(editors::modelloScelto(), indice);
  }
}

TEST_F(ModelloScelto, PrimaDellaSceltaNonCEne) {
  EXPECT_EQ(editors::modelloScelto(), std::nullopt);
  EXPECT_EQ(editors::numeroTasti(), QString());
  EXPECT_EQ(varGestionePRG().LarghezzaRiga, 0);
}

TEST_F(ModelloScelto, UnIndiceFuoriDallElencoLasciaTuttoComEra) {
  editors::scegliModello(9);
  for (const int fuori : {-1, 13}) {
    try {
      editors::scegliModello(fuori);
      ADD_FAILURE() << "nothing was thrown for " << fuori;
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, 9);
    }
    EXPECT_EQ(editors::modelloScelto(), 9);
    EXPECT_EQ(varGestionePRG().LarghezzaRiga, 26);
  }
}
