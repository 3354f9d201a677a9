#pragma once

#include <QByteArray>
#include <QString>

/// The note, in the current folder, of a reception that the till has not yet confirmed to have cleared.
namespace sales::nota {

/// Path of the archive that holds these sales by the note; empty if there is none, or of other sales.
QString archivioDi(const QByteArray& venduto);
/// Path of the archive of the note, whatever its sales; empty if there is none.
QString archivio();
/// On the disk when it returns. Throws Errore 61, 75 or 76.
void scrivi(const QByteArray& venduto, const QString& archivio);
void togli();

}  // namespace sales::nota
