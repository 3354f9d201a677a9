#pragma once

#include <QString>
#include <cstdint>

#include "platform/error.h"

class Utente;

/// The upkeep of the article's position number and of the table of EAN checksums in the open archive, so that
/// an article can be found by number. None of these opens a transaction: the caller's covers them. Each shows
/// its own messages. `causa`, where given, receives the failure behind a result other than 0.
namespace articles {

/// `Index` of an EAN whose article is gone.
inline constexpr std::int32_t kIndiceCancellato = -1;

/// Checksum of the text's single bytes, a whole number of 32 bits. The text goes in as it is stored: an empty
/// one, one that is no number and one with trailing blanks have checksums of their own.
double CalcolaEanNum(const QString& ean);

/// Numbers the articles 0, 1, 2 ... in ascending slot, one UPDATE by EAN for each: rows that share an EAN,
/// the empty one too, get the position of the last of them. 0 done, 1 failed; the first UPDATE that fails
/// ends it.
std::int16_t CalcolaID_Position(Utente& utente, Errore* causa = nullptr);
/// Writes the position of the rows that bear `ean`; an apostrophe in it breaks the statement. 0 done, -1
/// failed.
std::int16_t UpdateIDPosition(const QString& ean, std::int32_t position, Utente& utente,
                              Errore* causa = nullptr);

/// Builds the checksum table, which is taken to be empty: one row an article, with an event pass at each
/// under `BusyGuard`. 0 done, -1 failed; the first INSERT that fails ends it.
std::int16_t UpdateEanNumAndIndex(Utente& utente);
/// Adds one row to the checksum table. 0 done, -1 failed.
std::int16_t InsertEanNumerici(const QString& ean, double checksum, std::int32_t index, Utente& utente);

/// Takes every article's position over into the checksum table. 0 done, 1 if the articles could not be read:
/// a row that failed has told so and the walk goes on.
std::int16_t UpdateALLIndex(Utente& utente, Errore* causa = nullptr);
/// Writes the position of the rows with the checksum of `ean`; none is no failure. 0 done, 1 failed.
std::int16_t UpdateIndex(const QString& ean, std::int32_t index, Utente& utente, Errore* causa = nullptr);
/// What UpdateIndex makes of a failure that is not its statement's: 0 for those that are passed over, else 1
/// behind a message.
std::int16_t ReazioneUpdateIndex(const Errore& errore, Utente& utente);

}  // namespace articles
