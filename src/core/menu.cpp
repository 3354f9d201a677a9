#include "core/menu.h"

#include "core/Form_ATTESA.h"
#include "core/context.h"
#include "core/frmAbout.h"
#include "core/screens.h"
#include "core/start.h"
#include "platform/ui/display.h"

void MostraMenu(Contesto& contesto) {
  if (contesto.schermate.trova(kMenu) != nullptr) contesto.schermate.mostra(kMenu, contesto);
}

void registraSchermateCore(Schermate& schermate) {
  schermate.registra(kMenu, [](Contesto& c) {
    const QSize misure = display::sizes();
    return new start(c, {static_cast<float>(misure.width()), static_cast<float>(misure.height())});
  });
  schermate.registra<frmAbout>();
  schermate.registra(QStringLiteral("Form_ATTESA"), [](Contesto&) { return new Form_ATTESA; });
}
