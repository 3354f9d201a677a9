#pragma once

#include "core/help_window.h"

/// "Help Codice EAN": the help text on article codes from the application folder, to be read.
class Form_Help_CodiceEAN : public FinestraAiuto {
  Q_OBJECT

 public:
  explicit Form_Help_CodiceEAN(const Contesto& contesto);
};

namespace articles {

/// Opens the help text modally; tells that it is not there where it is not.
void MostraCodiceEAN(Contesto& contesto);

}  // namespace articles
