#pragma once

#include <QString>

struct Contesto;

/// A batch of statements for the open archive, one a line of a text file: what mends or fills an archive by
/// hand.
namespace customers {

struct EsitoIstruzioni {
  enum class Tipo {
    Abbandonato,  ///< the dialog was cancelled
    Eseguite,     ///< every line ran, and all of them are committed
    Annullate,    ///< a line, the file or the commit failed, and the whole was undone
  };
  Tipo tipo = Tipo::Abbandonato;
  /// Lines that ran; of a batch that failed, those before the one that stopped it.
  int righe = 0;
};

/// The batch from its dialog to its last box, in one transaction that begins ahead of the dialog and never
/// stays open. A line is one statement of the store's dialect in Windows-1252; an empty one is none, and
/// fails like any other. The time that each may take is the store's limit. A damaged archive is not written
/// on.
EsitoIstruzioni ImportaIstruzioni(Contesto& contesto);

}  // namespace customers
