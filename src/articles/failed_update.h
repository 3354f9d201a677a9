#pragma once

#include "platform/error.h"

class Utente;

namespace articles {

/// The box of an update of articles that failed, whoever made it.
void SegnalaModificaFallita(const Errore& errore, Utente& utente);

}  // namespace articles
