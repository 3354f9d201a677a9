#include "editors/key_tables.h"

#include <QString>
#include <QStringList>

#include "controls/FlexGrid.h"
#include "editors/keyboard_caller.h"
#include "platform/error.h"

namespace editors {

void CaricaTastiOpzione(ChiamanteTasti& chiamante, std::string_view tabella) {
  const QStringList valori =
      QString::fromLatin1(tabella.data(), static_cast<qsizetype>(tabella.size())).split(QLatin1Char(','));
  if (valori.size() < static_cast<qsizetype>(kTasti)) throw errors::outOfRange();
  FlexGrid& griglia = chiamante.MSFlexGrid();
  const FlexGrid::Frozen ferma(griglia);
  for (int tasto = 0; tasto < static_cast<int>(kTasti); ++tasto) {
    // The keys begin in row 0, so the first eight stand in the heading of the grid: a layout has nine rows of
    // keys, and its grid no other words above them.
    const int riga = tasto / kColonneTasti;
    griglia.setTextMatrix(riga, tasto - riga * kColonneTasti, valori[tasto]);
  }
}

}  // namespace editors
