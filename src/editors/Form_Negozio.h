#pragma once

#include "editors/form_editor.h"

namespace editors {

/// The shop's block, the number of the till, the header and the courtesy lines.
const Modulo& ModuloNegozio();

}  // namespace editors

/// "Configurazione Negozio": who the shop is, and what its receipts say at the head and at the foot.
class Form_Negozio : public EditorModulo {
  Q_OBJECT

 public:
  explicit Form_Negozio(Contesto& contesto);

  void salvaInMemoria() override { SalvaNegozio(); }

 private:
  /// Every field into its record: the shop's block, the number of the till, header and courtesy lines.
  void SalvaNegozio() { EditorModulo::salvaInMemoria(); }
  void creaLarghezze();
  void limita(int caratteri);
};
