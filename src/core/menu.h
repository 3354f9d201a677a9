#pragma once

class QString;
struct Contesto;
class Schermate;

/// Shows the menu again: what every workspace does when it closes. Nothing where the menu has been unloaded,
/// which is the end of the program.
void MostraMenu(Contesto& contesto);

/// Whether a placeholder stands for this screen.
bool inPreparazione(const QString& schermata, const Schermate& schermate);

/// Registers the screens of this layer: `frmAbout`, `Form_ATTESA`, and `start` over the display as it is now.
void registraSchermateCore(Schermate& schermate);

/// Registers a plain window with the title and a way back for every workspace of the menu that nobody has
/// registered so far.
void registraSchermateMancanti(Schermate& schermate);
