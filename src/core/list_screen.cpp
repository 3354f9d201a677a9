#include "core/list_screen.h"

#include <QPushButton>

#include "controls/command_key.h"
#include "controls/style.h"

namespace elenco {

void PreparaSchermo(QWidget& schermo, const Comandi& comandi) {
  schermo.setWindowFlag(Qt::WindowMaximizeButtonHint);
  comandi.Cmd_Reset->setIcon(style::icon(QStringLiteral("x")));
  comandi.Cmd_Refresh->setIcon(style::icon(QStringLiteral("list")));
  comandi.Cmd_Export->setIcon(style::icon(QStringLiteral("file-output")));
  comandi.Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  commandKey(*comandi.Cmd_Refresh, Qt::Key_F5);
  commandKey(*comandi.Cmd_Export, Qt::CTRL | Qt::Key_E);
  notByEnter(*comandi.Cmd_Esci);
}

}  // namespace elenco
