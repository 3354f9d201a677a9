#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "ecrlink/transfer_lock.h"

struct Contesto;

/// Images to named files in the process's current folder and back, and their way to the till. One program at
/// a time exchanges in a folder: the other is told, and nothing of it is touched.
namespace ecrlink {

/// The one file that is cut to its record size; the others are one byte longer than theirs.
inline constexpr const char* kFilePLU = "plu.bin";

/// Writes `immagine` (record bytes plus one zero byte) under the name `file` and sends it. 0 or a failure
/// code; every failure has been shown.
int SendPRGTo_ECR(std::span<const std::uint8_t> immagine, const QString& file, Contesto& contesto);
/// The same for one of several files: the folder stays the caller's, in `scambio`, from the first one until
/// that is emptied, or one fails.
int SendPRGTo_ECR(std::span<const std::uint8_t> immagine, const QString& file, Contesto& contesto,
                  std::optional<ScambioEsclusivo>& scambio);
/// Writes the image over the beginning of `file`; only "plu.bin" is cut to the image's upper bound. Whole or
/// not at all; a link in the file's place is replaced, not followed. 0 on success.
int CreaFileProgrammazione(const QString& file, std::span<const std::uint8_t> immagine, Contesto& contesto);
/// Cuts an existing file. Throws Errore 53 if it cannot be opened, 5 if it cannot be cut.
void TagliaFile(const QString& file, std::int64_t lunghezza);
/// Fills the image from the file's beginning; a shorter file leaves the rest as it was. 0 on success.
int ReadByteFromFile(std::span<std::uint8_t> immagine, const QString& file, Contesto& contesto);

/// What becomes of a file of the same name that an earlier transfer left.
enum class Precedente {
  Rimosso,
  Tenuto,  ///< under its PreviousName
};

/// Fetches `file` from the till and fills the image from it. The file of an earlier transfer is gone before,
/// so that it cannot pass for this one should the till hand nothing over. The bytes that came, or nothing
/// where the till or the folder failed, which has been shown.
std::optional<std::int64_t> RiceviFile(std::span<std::uint8_t> immagine, const QString& file,
                                       Precedente precedente, Contesto& contesto);
/// The same; the folder stays the caller's, in `scambio`, until that is emptied.
std::optional<std::int64_t> RiceviFile(std::span<std::uint8_t> immagine, const QString& file,
                                       Precedente precedente, Contesto& contesto,
                                       std::optional<ScambioEsclusivo>& scambio);

}  // namespace ecrlink
