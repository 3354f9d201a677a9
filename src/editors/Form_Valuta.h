#pragma once

#include "editors/grid_editor.h"

class FlexGrid;

namespace editors {

/// The 4 currencies.
const Tabella& TabellaValute();
/// The grid's rows into the records in memory.
void SalvaValute(const FlexGrid& griglia);

}  // namespace editors

/// "Valuta": the currencies of the configuration.
class Form_Valuta : public EditorGriglia {
  Q_OBJECT

 public:
  explicit Form_Valuta(Contesto& contesto);
};
