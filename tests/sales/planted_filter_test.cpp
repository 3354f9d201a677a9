// What is typed into a filter so that it would be a piece of its statement.

#include <gmock/gmock.h>

#include "controls/FlexGrid.h"
#include "sales/Form_ArchivioVenduto.h"
#include "sales/sales_ledger.h"
#include "sostegno/guided_screen.h"

namespace {

using testing::ElementsAre;

struct Filtro {
  const char* casella;
  const char* scritto;
  /// Where the statement stops being one.
  const char* pezzo;
};
void PrintTo(const Filtro& filtro, std::ostream* uscita) {
  *uscita << filtro.casella << ' ' << filtro.scritto;
}

class InnestoInUnFiltro : public testing::TestWithParam<Filtro> {};

TEST_P(InnestoInUnFiltro, SiDiceELElencoRestaComEra) {
  BackRoom bottega;
  bottega.screens.registra<Form_ArchivioVenduto>();
  bottega.openArchive();
  enter(bottega, testLedger(20));
  const GuidedScreen schermo(bottega, QStringLiteral("Form_ArchivioVenduto"));
  const auto elenco = [&] {
    QStringList righe;
    const auto& griglia = schermo.control<FlexGrid>("MSFlexGridVenduto");
    for (int riga = 1; riga < griglia.Rows(); ++riga) righe << griglia.TextMatrix(riga, 2);
    return righe;
  };
  const QStringList prima = elenco();
  ASSERT_EQ(prima.size(), 22);
  schermo.type(QString::fromUtf8(GetParam().casella), QString::fromUtf8(GetParam().scritto));
  schermo.click(QStringLiteral("Cmd_Cerca"));
  EXPECT_THAT(bottega.user.boxes(),
              ElementsAre(criticalBox(QStringLiteral("3075 - Errore di sintassi (operatore mancante) "
                                                     "nell'espressione della query '%1'.")
                                          .arg(QString::fromUtf8(GetParam().pezzo)))));
  EXPECT_EQ(elenco(), prima);
}

INSTANTIATE_TEST_SUITE_P(Caselle, InnestoInUnFiltro,
                         testing::Values(Filtro{"vkTextBoxCodEan", "' OR 'a' LIKE '",
                                                "OR 'a' LIKE '*' ORDER BY Data, Codice_EAN ASC"},
                                         Filtro{"vkTextBoxDescrizione", "' OR 'a' LIKE '",
                                                "OR 'a' LIKE '*' ORDER BY Data, Codice_EAN ASC"},
                                         Filtro{"vkTextBoxDescrizione", "x' OR Codice_EAN<>'",
                                                "OR Codice_EAN<>'*' ORDER BY Data, Codice_EAN ASC"}));

}  // namespace
