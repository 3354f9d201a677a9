#pragma once

#include "core/help_window.h"

/// "Help Codici Errori": the help text on the till's error codes from the application folder, to be read.
class Form_Help_CodiciErrori : public FinestraAiuto {
  Q_OBJECT

 public:
  explicit Form_Help_CodiciErrori(const Contesto& contesto);
};

namespace auxcmd {

/// Opens the help text modally; tells that it is not there where it is not.
void MostraCodiciErrori(Contesto& contesto);

}  // namespace auxcmd
