#include "core/menu.h"

#include "core/Form_ATTESA.h"
#include "core/context.h"
#include "core/frmAbout.h"
#include "core/placeholder_workspace.h"
#include "core/screens.h"
#include "core/start.h"
#include "platform/ui/display.h"

namespace {

const QString kMenu = QStringLiteral("start");

struct AreaDiLavoro {
  const char* nome;
  const char* titolo;
};

constexpr AreaDiLavoro kAree[] = {
    {"Form_Grafica", "Qz Grafica "},
    {"Form_GestioneMMC", "Gestione Articoli / Venduto"},
    {"MDIForm_PRG", "Programmazione ECR"},
    {"Form_GestioneClienti", "Gestione Clienti"},
    {"Form_Comandi_XONXOFF", " Gestione Comandi Ausiliari ECR"},
};

/// A placeholder has a second name, by which the menu tells it from a screen.
QString nomeDelPosto(const QString& schermata) {
  return QStringLiteral("in preparazione: ") + schermata;
}

}  // namespace

void MostraMenu(Contesto& contesto) {
  if (contesto.schermate.trova(kMenu) != nullptr) contesto.schermate.mostra(kMenu, contesto);
}

bool inPreparazione(const QString& schermata, const Schermate& schermate) {
  return schermate.registrata(nomeDelPosto(schermata));
}

void registraSchermateCore(Schermate& schermate) {
  schermate.registra(kMenu, [](Contesto& c) {
    const QSize misure = display::sizes();
    return new start(c, {static_cast<float>(misure.width()), static_cast<float>(misure.height())});
  });
  schermate.registra<frmAbout>();
  schermate.registra(QStringLiteral("Form_ATTESA"), [](Contesto&) { return new Form_ATTESA; });
}

void registraSchermateMancanti(Schermate& schermate) {
  for (const AreaDiLavoro& area : kAree) {
    const QString nome = QLatin1String(area.nome);
    if (schermate.registrata(nome)) continue;
    const QString titolo = QLatin1String(area.titolo);
    const auto fabbrica = [=](Contesto& c) { return new Form_Provvisoria(c, nome, titolo); };
    schermate.registra(nome, fabbrica);
    schermate.registra(nomeDelPosto(nome), fabbrica);
  }
}
