#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <cstdint>
#include <optional>

class Utente;
struct Contesto;

/// The files that a till's legal records are dumped into.
namespace auxcmd {

/// The two records; the numbers are those by which a dump is classified.
enum class Memoria : std::int16_t { DGFE = 1, MF = 2 };

/// "DGFE_03122009_091505.txt": without a folder.
QString nomeFileDump(Memoria memoria, const QDateTime& quando);
/// The three lines that every dump begins with, each closed by CR LF.
QByteArray testaDump(Memoria memoria, const QDateTime& quando);

/// The process's table of open dump files. Numbers are above 0, the lowest free one first; a file stays open
/// until it is closed by its number or the process ends.

/// Makes a file and opens it. Throws Errore 75 if there is one of that name already: what was dumped is never
/// written over. 75 and 76 for a folder that takes no file.
std::int32_t apriFileDump(const QString& percorso);
/// Writes behind what the file holds; when it returns the system has the bytes. Throws Errore 61 if not all
/// of them went in, 5 if no file bears the number.
void scriviFileDump(std::int32_t numero, const QByteArray& byte);
/// Nothing for a number that no file bears. Throws Errore 75 if the system refuses the last bytes.
void chiudiFileDump(std::int32_t numero);

/// Full paths of the dump files that were begun last; empty before the first.
struct FileDump {
  QString dgfe;
  QString mf;

  QString& di(Memoria memoria) { return memoria == Memoria::DGFE ? dgfe : mf; }
  const QString& di(Memoria memoria) const { return memoria == Memoria::DGFE ? dgfe : mf; }
};

/// Begins the dump file of a record in the folder: keeps its path, opens it into `NumFileDump`, writes the
/// head. A file that is open already stays so. Throws as `apriFileDump` and `scriviFileDump`.
void iniziaFileDump(Memoria memoria, const QDateTime& quando, const QString& cartella, FileDump& file);

/// Appends `testo` to the dump file of a record. `risultato`: 0, or 1 for a failure, which has been shown.
void ScriviDumpScontrini(const QString& testo, std::int16_t& risultato, Memoria memoria, const FileDump& file,
                         Utente& utente);

/// The work file that dumps are taken into, and the one with the stream of a classified dump.
QString fileTempDump(const Contesto& contesto);
QString fileTemp(const Contesto& contesto);

/// Which record a dump is of, by the command in its text: 10 and 11 stand for the journal, 12 and 13 for the
/// fiscal memory. What follows the command in its line, and all that is behind, goes to the work file
/// "Temp.dat", in place of one that was there. Without a command nothing, and no work file.
/// A command further in its line than `LineReader::kMaxLine` is not seen. Throws Errore 53, 61 or 75.
std::optional<Memoria> TipoDumpMemoria(const QString& file, const Contesto& contesto);
/// Copies "TempDump_Memory.dat" to the dump file that its kind and the present time call for. Returns the
/// path of the copy, empty for a dump of no known kind. Throws Errore 53, 61 or 75.
QString ArchiviaDumpMemoria(const Contesto& contesto);

/// Copies a dump of any length, whole or not at all. Throws Errore 61, 70, 75 or 76.
void CopiaDump(const QString& da, const QString& a);

}  // namespace auxcmd
