#pragma once

#include <QString>
#include <array>
#include <cstddef>

/// The twelve pictures of the till: which bitmap stands for which.
namespace graphics {

inline constexpr std::size_t kImmagini = 12;
inline constexpr const char* kNomeCatalogo = "SetupLOGO.dat";
/// Folder of the bitmaps in the application folder.
inline constexpr const char* kCartellaImmagini = "Immagini GRAFICA";

struct VoceGrafica {
  QString tipo;
  /// Name of a file in the folder that is on the screen, without it.
  QString file;
  bool operator==(const VoceGrafica&) const = default;
};

/// In the order in which the pictures go to the till.
using Catalogo = std::array<VoceGrafica, kImmagini>;

struct ModGra1 {
  Catalogo RecGrafica;
  /// Whole path of the bitmap chosen last; empty until one has been.
  QString BitmapCorrente;
};

/// The one instance. A test makes it fresh: `modGra1() = {}`.
ModGra1& modGra1();

/// Fills RecGrafica from the file at `percorso` (`leggi`), up to its end or the twelfth entry: what it lacks
/// stays empty. Otherwise with the defaults, which are then written there. Throws the Errore of a file that
/// cannot be read or written; one that cannot be read leaves RecGrafica empty.
void RiempiRecGrafica(bool leggi, const QString& percorso);
/// Writes 24 lines, of each entry type and name, in the ANSI code page; whole or not at all.
void SaveRecGrafica(const QString& percorso);

/// Whether a name can be that of a file in a folder: the catalogue is a text that anybody edits, and none of
/// its names may lead out of the folder, nor take more than its line.
bool nomeAmmesso(const QString& nome);
/// Whether a name comes back from the catalogue's file as it went in.
bool nomeConservato(const QString& nome);
/// Folder and name with the platform's separators.
QString percorsoBitmap(const QString& cartella, const QString& nome);
/// Whether there is such a file; never for a name that is not admitted.
bool bitmapEsiste(const QString& cartella, const QString& nome);

}  // namespace graphics
