#include "workspace/import_outcome.h"

#include "core/context.h"
#include "core/figures.h"
#include "platform/store/store.h"

namespace workspace {

namespace {

using articles::EsitoImport;
using Kind = OutcomeBar::Kind;

QString righe(int quante) {
  return quanti(quante, QStringLiteral("riga"), QStringLiteral("righe"));
}

/// Why the import stopped where it did.
QString motivo(const EsitoImport& esito) {
  if (esito.tipo == EsitoImport::Tipo::Fallito)
    return QStringLiteral("Importazione fermata alla riga %1.").arg(cifra(esito.righe + 1));
  return QStringLiteral("Importazione interrotta dopo %1: %2").arg(righe(esito.righe), esito.dettaglio) +
         (esito.dettaglio.endsWith(u'.') ? QString() : QStringLiteral("."));
}

QString rimaste(const EsitoImport& esito) {
  if (esito.scritte == 0) return QStringLiteral(" L'archivio è rimasto com'era.");
  if (esito.scritte == 1) return QStringLiteral(" Resta scritta nell'archivio la riga precedente.");
  return QStringLiteral(" Restano scritte nell'archivio le %1 righe precedenti.").arg(cifra(esito.scritte));
}

/// An import that stopped on the way keeps the rows before.
RaccontoImport fermata(const EsitoImport& esito, Contesto& contesto) {
  QString nonConfermate = esito.nonConfermate;
  try {
    contesto.area.CommitDownTo(0);
  } catch (const Errore& errore) {
    nonConfermate = errore.descrizione;
  }
  if (nonConfermate.isEmpty()) return {Kind::Warning, motivo(esito) + rimaste(esito)};
  return {Kind::Failed,
          motivo(esito) + QStringLiteral(" Nulla è stato scritto nell'archivio: %1").arg(nonConfermate)};
}

}  // namespace

RaccontoImport ConcludiImport(const EsitoImport& esito, Contesto& contesto) {
  switch (esito.tipo) {
    case EsitoImport::Tipo::Abbandonato:
      return {};
    case EsitoImport::Tipo::Importato:
      return {esito.errori == 0 && esito.dettaglio.isEmpty() ? Kind::Done : Kind::Warning,
              QStringLiteral("Importazione: righe lette %1, errori %2. %3")
                  .arg(cifra(esito.righe), cifra(esito.errori), esito.dettaglio)
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
