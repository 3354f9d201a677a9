#pragma once

#include <QString>

struct Contesto;

/// The files of the archives that a person makes and opens: what is overwritten stays beside the new one.
namespace archivio {

/// Of the dialogs of every archive.
inline constexpr const char* kFiltro = "mdb (*.mdb)|*.mdb";

/// Of a database that is no archive of the wanted kind.
inline constexpr const char16_t* kIlleggibile = u"Il contenuto dell'archivio non è leggibile.";

/// What the screens over an archive show of it: "Archivio: ", and the file's name.
QString Etichetta(const QString& percorso);

/// Keeps a copy of the archive at `percorso` beside it, under its PreviousName, which it returns; a file that
/// is no archive is kept as it is. Throws Errore 61, 70, 75 or 3260.
QString Conserva(const QString& percorso, Contesto& contesto);
/// Copies the template `modello` over `percorso`. What stood there is kept beside it, in place of what was
/// kept so before; returns the path of that, empty if nothing stood there. Throws Errore 53 for a missing
/// template, 61, 70, 75 or 3260 for a failed copy of either; then the file at `percorso` is as before.
QString CopiaModello(const QString& modello, const QString& percorso, Contesto& contesto);

}  // namespace archivio
