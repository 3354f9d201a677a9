#include "articles/failed_update.h"

#include "platform/ui/user_port.h"

namespace articles {

void SegnalaModificaFallita(const Errore& errore, Utente& utente) {
  utente.MsgBox(QStringLiteral("Errore nella modifica articoli .\nErrore n° ") +
                    QString::number(errore.numero) + u'\n' + errore.descrizione,
                Icon::Critical);
}

}  // namespace articles
