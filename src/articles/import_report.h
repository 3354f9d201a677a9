#pragma once

#include <QDateTime>
#include <QString>

#include "articles/import_line.h"

namespace articles {

/// What `WriteFileLOG` marks beside the codes of `PutArticolo`.
inline constexpr QLatin1String kAvvisoEanDuplicato("WARNING: EAN DUPLICATO");
inline constexpr QLatin1String kErrorePrezzo("ERR: PREZZO");
inline constexpr QLatin1String kErroreReparto("ERR: REPARTO");

/// The report of an import: Windows-1252, CR LF. Each procedure opens the file and closes it again, so that a
/// report is readable whenever the import stops; each throws Errore 61 (disk full), 75 (not writable) or 76
/// (no such folder).

/// Path of the report beside the input: its name up to ".csv", "_", the moment, ".log".
QString NomeFileLOG(const QString& ingresso, const QDateTime& inizio);
/// Begins the report anew with its heading.
void CreaFileLOG(const QString& log, const QString& ingresso, const QDateTime& momento);
/// Adds the line of one article. `codice`: one of the three texts above, or a code of `PutArticolo` as text.
void WriteFileLOG(const QString& log, const QString& codice, const CampiImport& campi);
/// Adds the closing lines with the total of faults.
void CloseFileLOG(const QString& log, int errori, const QDateTime& momento);

}  // namespace articles
