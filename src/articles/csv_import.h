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
    Fallito,      ///< a line without its shape stopped it; the rows before it are committed
    Interrotto,   ///< any other failure; the rows before it wait in the open transaction
  };
  Tipo tipo = Tipo::Abbandonato;
  int righe = 0;
  /// Rows of the archive that they changed: a line of a slot that is not there changes none.
  int scritte = 0;
  int errori = 0;
  /// Why the rows before the line that stopped it could not be committed; empty where they were.
  QString nonConfermate{};
  /// What failed where nothing was shown.
  QString dettaglio{};
  /// The report beside the input; empty where there is none.
  QString log{};
};

/// "Importa Articoli" from its dialog to its last box: one UPDATE a line inside one transaction of the
/// default workspace, an event pass a line under the busy guard and the wait box, a report beside the input.
/// The transaction stays open when the dialog is cancelled and after a failure that is no statement's: the
/// end of the command commits it. A line that stops the import commits the rows before it ahead of its box,
/// since a person may take an hour to answer. A damaged archive is not written on.
EsitoImport ImportaArticoli(Contesto& contesto);

}  // namespace articles
