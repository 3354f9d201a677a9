#pragma once

#include <QLatin1String>

struct Contesto;
class Schermate;

/// The name of the menu's screen.
constexpr QLatin1String kMenu("start");

/// Shows the menu again: what every workspace does when it closes. Nothing where the menu has been unloaded,
/// which is the end of the program.
void MostraMenu(Contesto& contesto);

/// Registers the screens of this layer: `frmAbout`, `Form_ATTESA`, and `start` over the display as it is now.
void registraSchermateCore(Schermate& schermate);
