#pragma once

#include "editors/grid_editor.h"

class FlexGrid;

namespace editors {

/// The 8 VAT rates.
const Tabella& TabellaIVA();
/// The grid's rows into the records in memory.
void SalvaIVA(const FlexGrid& griglia);

}  // namespace editors

/// "IVA": the VAT rates of the configuration.
class Form_IVA : public EditorGriglia {
  Q_OBJECT

 public:
  explicit Form_IVA(Contesto& contesto);
};
