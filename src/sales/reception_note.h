#pragma once

#include <QByteArray>
#include <QString>

/// The note, in the current folder, of the receptions that their tills have not yet confirmed to have
/// cleared: one line a till.
namespace sales::nota {

/// What the note knows sales by.
QByteArray impronta(const QByteArray& venduto);
/// Path of the archive that holds the sales of this impression by the note; empty if there is none, or of
/// others.
QString archivioDi(const QByteArray& impronta);
/// Path of the archive of the till's own line, or where it has none of the last line; empty without a note.
QString archivio(const QString& cassa);
/// On the disk when it returns; takes the place of the till's line. Throws Errore 61, 75 or 76.
void scrivi(const QByteArray& impronta, const QString& archivio, const QString& cassa);
/// The till has cleared: its line goes.
void togli(const QString& cassa);

}  // namespace sales::nota
