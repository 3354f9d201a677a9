#pragma once

#include <QString>
#include <cstdint>

class Utente;
struct Contesto;

/// The sending of the whole article archive as one image, and what the PC and the till know of it.
namespace articles {

/// Tells that the open archive is empty, or that its articles could not be counted.
void RicavaDettagliPC(Utente& utente);

/// Results of CheckErrTabArticoli.
inline constexpr std::int16_t kArticoliErrati = 998;
inline constexpr std::int16_t kNessunErrato = 999;
/// Whether some article bears the import's mark "ERR".
std::int16_t CheckErrTabArticoli(Utente& utente);

/// A moment of TAB_VARIE, yyyymmddhhmmss, taken apart by position; missing digits give empty texts.
struct Momento {
  QString anno, mese, giorno, ora, minuto, secondo;
  bool operator==(const Momento&) const = default;
};
Momento scomponiMomento(const QString& testo);
/// Reads the two moments of TAB_VARIE and drops them: no screen shows them. Failures are shown.
void RicavaDettagliECR(Utente& utente);

enum class EsitoInvio {
  Inviato,      ///< the till has the image
  NonRiempito,  ///< RiempiPLU failed and told so; nothing was sent
  Fallito,      ///< the file channel failed and told so
};
/// Fills the records and sends them as "plu.bin", 240000 bytes.
EsitoInvio InviaArchivio(Contesto& contesto);
/// The records in memory with an EAN or a description: slots that nobody filled travel too, and are none.
int ArticoliInMemoria();
/// What a sending took to the till: the records with an EAN or a description, and the bytes of all.
QString RaccontoInvio();

}  // namespace articles
