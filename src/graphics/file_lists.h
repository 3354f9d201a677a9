#pragma once

#include <QString>
#include <QStringList>

/// What the lists of drives, folders and bitmaps show. Each is sorted without regard to case and bounded:
/// beyond its bound a folder shows what was found first.
namespace graphics {

inline constexpr int kVociMassime = 2000;

/// Where files are looked for from: the platform's drives, and the places where it puts those that are
/// plugged in.
QStringList unita();
/// The drive of a path: the longest that the path begins with; the first where none does.
QString unitaDi(const QString& percorso, const QStringList& unita);
/// Names of the folders in a folder.
QStringList cartelleIn(const QString& cartella);
/// Names of the bitmaps in it, those that the catalogue cannot name left out.
QStringList bitmapIn(const QString& cartella);

/// Has a bitmap from elsewhere in the folder too, so that the catalogue can name it, and returns its name.
/// One that is there already, or is the same byte for byte, is not touched. Throws Errore 5 for a name that
/// the catalogue cannot hold, 58 where another file bears the name, and those of files that cannot be copied.
QString PortaNellaCartella(const QString& percorso, const QString& cartella);
inline constexpr int kEsisteUnAltro = 58;

}  // namespace graphics
