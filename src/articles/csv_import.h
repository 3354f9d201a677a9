#pragma once

#include <QDateTime>
#include <QString>
#include <cstdint>
#include <functional>

struct Contesto;

/// The import of articles from a text file of semicolon-separated fields into the open archive.
namespace articles {

/// The wait box while an import runs. Every member may be empty.
struct AttesaImport {
  std::function<void()> apri;
  /// Bytes of the file done, of how many.
  std::function<void(qint64 letti, qint64 totale)> avanza;
  std::function<void()> chiudi;
};

using Orologio = std::function<QDateTime()>;

struct EsitoImport {
  enum class Tipo {
    Abbandonato,  ///< the dialog was cancelled
    Importato,    ///< every line written and committed
    Annullato,    ///< a statement failed and the whole was undone
    Fallito,      ///< a line without its shape stopped it; lines before it wait in the open transaction
    Interrotto,   ///< any other failure; as above
  };
  Tipo tipo = Tipo::Abbandonato;
  int righe = 0;
  int errori = 0;
  /// What failed where nothing was shown.
  QString dettaglio;
};

/// "Importa Articoli" from its dialog to its last box: one UPDATE a line inside one transaction of the
/// default workspace, an event pass a line under `Occupato`, a report beside the input. The transaction stays
/// open when the dialog is cancelled, when a line stops the import, and after a failure that is no
/// statement's.
EsitoImport ImportaArticoli(Contesto& contesto, const AttesaImport& attesa,
                            const Orologio& orologio = QDateTime::currentDateTime);

}  // namespace articles
