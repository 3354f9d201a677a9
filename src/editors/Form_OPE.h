#pragma once

#include "editors/form_editor.h"

namespace editors {

/// The 10 operators.
const Modulo& ModuloOperatori();

}  // namespace editors

/// "Operatori": who may work at the till, with their passwords.
class Form_OPE : public EditorModulo {
  Q_OBJECT

 public:
  explicit Form_OPE(Contesto& contesto);

  void salvaInMemoria() override { SalvaOperatori(); }

 protected:
  bool controlla() override { return Check_Password_Change(); }

 private:
  bool Check_Password_Change();
  /// Every row into its record.
  void SalvaOperatori() { EditorModulo::salvaInMemoria(); }
};
