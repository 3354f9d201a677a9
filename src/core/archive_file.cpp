#include "core/archive_file.h"

#include "core/context.h"
#include "core/conversions.h"
#include "platform/error.h"
#include "platform/store/store.h"
#include "platform/text/file_name.h"
#include "platform/text/previous_file.h"

namespace archivio {

QString Etichetta(const QString& percorso) {
  return QStringLiteral("Archivio: ") + FileName(percorso);
}

QString Conserva(const QString& percorso, Contesto& contesto) {
  QString copia = PreviousName(percorso);
  try {
    // Open, the archive is copied by the engine: at rest, and without what a killed program left half done.
    const store::Database aperto = contesto.area.OpenDatabase(percorso);
    store::CopyArchive(percorso, copia);
    return copia;
  } catch (const Errore& errore) {
    if (errore.numero != errors::kNotADatabase) throw;
  }
  // The person may name any file: one that is no archive is kept as it is.
  store::CopyArchive(percorso, copia);
  return copia;
}

QString CopiaModello(const QString& modello, const QString& percorso, Contesto& contesto) {
  // Without the template nothing is overwritten, and the copy of the time before stays.
  const bool sovrascrive = FileEsiste(modello) && FileEsiste(percorso);
  QString precedente = sovrascrive ? Conserva(percorso, contesto) : QString();
  store::CopyArchive(modello, percorso);
  return precedente;
}

}  // namespace archivio
