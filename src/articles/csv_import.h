#pragma once

#include <QString>

struct Contesto;

/// The import of articles from a text file of semicolon-separated fields into the open archive.
namespace articles {

struct EsitoImport {
  enum class Tipo {
    Abbandonato,  ///< the dialog was cancelled
    Importato,    ///< every line written and committed
    Annullato,    ///< a statement or the commit failed, and the whole was undone
    Fallito,      ///< a line without its shape stopped it; lines before it wait in the open transaction
    Interrotto,   ///< any other failure; as above
  };
  Tipo tipo = Tipo::Abbandonato;
  int righe = 0;
  int errori = 0;
  /// What failed where nothing was shown.
  QString dettaglio{};
  /// The report beside the input; empty where there is none.
  QString log{};
};

/// "Importa Articoli" from its dialog to its last box: one UPDATE a line inside one transaction of the
/// default workspace, an event pass a line under the busy guard and the wait box, a report beside the input.
/// The transaction stays open when the dialog is cancelled, when a line stops the import, and after a failure
/// that is no statement's: the end of the command commits it. A damaged archive is not written on.
EsitoImport ImportaArticoli(Contesto& contesto);

}  // namespace articles
