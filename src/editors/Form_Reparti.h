#pragma once

#include "editors/grid_editor.h"

class FlexGrid;

namespace editors {

/// The 80 departments.
const Tabella& TabellaReparti();
/// The grid's rows into the records in memory. Throws Errore 6 for a VAT rate or a tallon outside 1 to 8.
void SalvaReparti(const FlexGrid& griglia);

}  // namespace editors

/// "Reparti": the departments of the configuration.
class Form_Reparti : public EditorGriglia {
  Q_OBJECT

 public:
  explicit Form_Reparti(Contesto& contesto);
};
