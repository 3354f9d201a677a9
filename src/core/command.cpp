#include "core/command.h"

#include "platform/store/store.h"

Comando::Comando(Contesto& contesto, QString procedura, QString modulo)
    : contesto_(contesto),
      procedura_(std::move(procedura)),
      modulo_(std::move(modulo)),
      livello_(contesto.area.level()) {}

Comando::~Comando() {
  try {
    contesto_.area.CommitDownTo(livello_);
  } catch (const Errore& errore) {
    reazioni::segnalaImprevisto(contesto_.utente, errore, procedura_, modulo_);
  }
}
