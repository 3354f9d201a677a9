#pragma once

class Schermate;

namespace auxcmd {

/// Makes the screens of the test bench known by their names, "Form_TestVendita" and so on.
void registraBanchi(Schermate& schermate);

}  // namespace auxcmd
