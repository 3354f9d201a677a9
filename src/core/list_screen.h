#pragma once

class QPushButton;
class QWidget;

namespace elenco {

/// The commands of every screen that shows a list, by their names there.
struct Comandi {
  QPushButton* Cmd_Reset;
  QPushButton* Cmd_Refresh;
  QPushButton* Cmd_Export;
  QPushButton* Cmd_Esci;
};
/// Gives them the icons and keys that they have on each of these screens, which can be maximised.
void PreparaSchermo(QWidget& schermo, const Comandi& comandi);

}  // namespace elenco
