#pragma once

#include <QString>
#include <cstdint>

#include "platform/store/statement.h"

namespace articles {

/// The fields of the line being imported, as they stand in the file; once the price has been read, with a
/// point in place of its comma.
struct CampiImport {
  std::int16_t auto_id = 0;
  QString Codice_EAN;
  QString Codice_Articolo;
  QString Descrizione;
  QString Prezzo;
  QString Reparto;
};

/// Results of `PutArticolo`.
inline constexpr std::int16_t kRigaSana = 0;
inline constexpr std::int16_t kSeparatori = 1;
inline constexpr std::int16_t kEanAssente = 4;
inline constexpr std::int16_t kArticoloAssente = 5;
inline constexpr std::int16_t kRepartoAssente = 6;
inline constexpr std::int16_t kDescrizioneAssente = 7;
inline constexpr std::int16_t kPosizione = 8;

/// Takes the fields of a line: slot; EAN; code; description; price; department; three that are ignored.
/// Empty ones take their default. Returns one of the codes above. Throws Errore 13 for a slot that is no
/// number, 6 for one beyond 16 bits.
std::int16_t PutArticolo(const QString& riga, CampiImport& campi);

/// `StatoImport` before the first fault.
inline constexpr std::int16_t kStatoPulito = 1;

/// The UPDATE of the slot up to its last column. An apostrophe in a text, and a department that is no number,
/// break it. Throws Errore 6 for a price beyond 32 bits of hundredths.
store::Statement TestaIstruzione(const CampiImport& campi);
/// The mark of the row and the condition; nothing once the faults have brought `StatoImport` beyond 6, so
/// that the statement fails.
store::Statement CodaIstruzione(std::int16_t StatoImport, std::int16_t auto_id);

}  // namespace articles
