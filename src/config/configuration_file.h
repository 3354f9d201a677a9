#pragma once

#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>

#include "config/image.h"
#include "config/records.h"

class Utente;

/// The configuration file: version, model, the shop's block and the image, one behind the other, without a
/// length, a separator or a sum.
namespace config {

/// What stands at the head of the file, carried unchanged from the template.
namespace testata {
inline constexpr Campo kVersione{"versione", 0, 6, Tipo::Riservato};
inline constexpr Campo kModello{"modello", 6, 3, Tipo::Riservato};
inline constexpr std::array kCampi{kVersione, kModello};
inline constexpr std::size_t kByte = 9;
static_assert(coerente(kCampi, kByte));
}  // namespace testata
using TestataFile = std::array<std::uint8_t, testata::kByte>;

inline constexpr const char* kVersioneFile = "V03.00";
inline constexpr const char* kModelloConfigurazione = "QzPRG.bck";

inline constexpr std::size_t kInizioNegozio = testata::kByte;
inline constexpr std::size_t kInizioImmagine = kInizioNegozio + negozio::kByte;
inline constexpr std::size_t kByteFile = kInizioImmagine + kByteImmagine;
static_assert(kInizioImmagine == 146 && kByteFile == 245114);

/// The working copies of the process, all zero at start; the image is `immagineProgrammazione()`.
TestataFile& testataFile();
BloccoNegozio& bloccoNegozio();
/// Head, block and image as at the start of the process.
void azzeraConfigurazione();

/// Version and model of the working copy as texts.
QString versioneFile();
QString modelloFile();

/// Reads the file's first 9 bytes. 1 when it is not of this format, with the head of the working copy as it
/// was; 0 when it is: then the head is the file's, and `pannello`, the first panel of the workspace's status
/// bar, tells file and version. A file that cannot be read throws Errore 53 or 75 and changes nothing; of a
/// shorter one the rest counts as zeros.
std::uint16_t VerificaVersioneFile(const QString& path, QString& pannello);
/// "File : [<name>] - Versione <version>" of the working copy.
QString TestoPannello(const QString& path);

/// The whole file into memory. What a short file does not reach is zero, and what a long one has behind is
/// not read. 0 on success; a failure has been shown and leaves the memory as it was.
std::int16_t CaricaConfigurazione(const QString& path, Utente& utente);

/// What a save changed in the file: records, by family.
struct Salvataggio {
  std::int16_t esito = 0;
  /// "12 reparti, 3 aliquote"; empty where nothing differs.
  QString racconto;
};
/// Everything in memory into the file, whole or not at all; the file before it stays beside it under its
/// `PreviousName`, where the two differ. `esito` 0 on success; a failure has been shown.
Salvataggio SalvaConfigurazioneRaccontando(const QString& path, Utente& utente);
std::int16_t SalvaConfigurazione(const QString& path, Utente& utente);

/// Path of the article database beside a configuration: its bare name and "_art.mdb".
QString PercorsoCompagno(const QString& path);

}  // namespace config
