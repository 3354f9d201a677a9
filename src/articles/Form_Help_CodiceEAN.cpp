#include "articles/Form_Help_CodiceEAN.h"

namespace {

constexpr Aiuto kAiuto{.schermata = "Form_Help_CodiceEAN",
                       .titolo = "Help Codice EAN",
                       .file = "Help_CodiceEAN.rtf",
                       .ritorno = "Torna all'archivio degli articoli (Esc)",
                       .assente = "Attenzione il file di Help per Codice EAN non presente",
                       .icona = Icon::Critical};

}  // namespace

Form_Help_CodiceEAN::Form_Help_CodiceEAN(const Contesto& contesto) : FinestraAiuto(kAiuto, contesto) {}

void articles::MostraCodiceEAN(Contesto& contesto) {
  MostraAiuto(kAiuto, contesto);
}
