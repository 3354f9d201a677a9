#pragma once

#include "editors/grid_editor.h"

class FlexGrid;

namespace editors {

/// The 5000 PLU. The EAN code has no column and stays as it is.
const Tabella& TabellaPLU();
/// The grid's rows into the records in memory: the department as typed, with no shift, the flags from 0.
void SalvaPLUGriglia(const FlexGrid& griglia);

}  // namespace editors

/// "Gestione PLU": the PLU of the configuration.
class Form_PLU : public EditorGriglia {
  Q_OBJECT

 public:
  explicit Form_PLU(Contesto& contesto);
};
