#include "workspace/import_outcome.h"

#include <QLocale>

#include "core/context.h"
#include "platform/store/store.h"

namespace workspace {

namespace {

using articles::EsitoImport;
using Kind = OutcomeBar::Kind;

QString numero(int valore) {
  return QLocale(QLocale::Italian).toString(valore);
}

/// Why the import stopped where it did.
QString motivo(const EsitoImport& esito) {
  if (esito.tipo == EsitoImport::Tipo::Fallito)
    return QStringLiteral("Importazione fermata alla riga %1.").arg(numero(esito.righe + 1));
  return QStringLiteral("Importazione interrotta dopo %1 righe: %2.")
      .arg(numero(esito.righe), esito.dettaglio);
}

/// An import that stopped on the way keeps the rows before.
RaccontoImport fermata(const EsitoImport& esito, Contesto& contesto) {
  try {
    contesto.area.CommitDownTo(0);
  } catch (const Errore& errore) {
    return {
        Kind::Failed,
        motivo(esito) + QStringLiteral(" Nulla è stato scritto nell'archivio: %1.").arg(errore.descrizione)};
  }
  if (esito.righe == 0)
    return {Kind::Warning, motivo(esito) + QStringLiteral(" L'archivio è rimasto com'era.")};
  return {
      Kind::Warning,
      motivo(esito) +
          QStringLiteral(" Restano scritte nell'archivio le %1 righe precedenti.").arg(numero(esito.righe))};
}

}  // namespace

RaccontoImport ConcludiImport(const EsitoImport& esito, Contesto& contesto) {
  switch (esito.tipo) {
    case EsitoImport::Tipo::Abbandonato:
      return {};
    case EsitoImport::Tipo::Importato:
      return {esito.errori == 0 && esito.dettaglio.isEmpty() ? Kind::Done : Kind::Warning,
              QStringLiteral("Importazione: righe lette %1, errori %2. %3")
                  .arg(numero(esito.righe), numero(esito.errori), esito.dettaglio)
                  .trimmed()};
    case EsitoImport::Tipo::Annullato:
      return {Kind::Warning, QStringLiteral("Importazione annullata: l'archivio è rimasto com'era.")};
    case EsitoImport::Tipo::Fallito:
    case EsitoImport::Tipo::Interrotto:
      return fermata(esito, contesto);
  }
  return {};
}

}  // namespace workspace
