#include "auxcmd/Form_Help_CodiciErrori.h"

namespace {

constexpr Aiuto kAiuto{.schermata = "Form_Help_CodiciErrori",
                       .titolo = "Help Codici Errori",
                       .file = "Help_Errori_XONXOFF.rtf",
                       .ritorno = "Torna ai comandi ausiliari (Esc)",
                       .assente = "Attenzione il file di Help per errori Xon Xoff non presente",
                       .icona = Icon::None};

}  // namespace

Form_Help_CodiciErrori::Form_Help_CodiciErrori(const Contesto& contesto) : FinestraAiuto(kAiuto, contesto) {}

void auxcmd::MostraCodiciErrori(Contesto& contesto) {
  MostraAiuto(kAiuto, contesto);
}
