#include "core/resolution.h"

#include "platform/ui/user_port.h"

namespace {

/// The platform's number-to-text conversion leaves a blank for the sign.
QString conSegno(float numero) {
  return QLatin1Char(' ') + QString::number(static_cast<int>(numero));
}

}  // namespace

QString TestoRisoluzione(MisureSchermo misure) {
  return QStringLiteral("La definizione dello schermo attuale e' ") + conSegno(misure.larghezza) +
         QStringLiteral(" X ") + conSegno(misure.altezza) +
         QStringLiteral(
             ". Per un corretto funzionamento dell'applicazione, è necessaria una risoluzione dello schermo "
             "di "
             "almeno 1024 x 768. Scegliendo OK, verrà impostata automaticamente la risoluzione a 1024 x "
             "768.");
}

MisureSchermo ControllaRisoluzione(MisureSchermo misure, Utente& utente, const CambioModo& cambia) {
  if (misure.larghezza >= kMisureMinime.larghezza && misure.altezza >= kMisureMinime.altezza) return misure;
  const Answer risposta =
      utente.MsgBox(TestoRisoluzione(misure), Icon::None,
                    QStringLiteral("Impostazione Risoluzione dello schermo"), Buttons::OkCancel);
  if (risposta == Answer::Cancel) return misure;
  cambia(kMisureMinime.larghezza, kMisureMinime.altezza);
  return kMisureMinime;
}
