#pragma once

#include <QString>
#include <cstdint>

#include "platform/store/store.h"

class Utente;
struct Contesto;

/// The customer archive: one file with the customers of the till and the invoices that it has issued to them.
/// One at a time is open, `varGlobal().DB_Clienti`; every statement works on whichever that is at the moment.
namespace customers {

/// Template of a new archive, in the application folder.
inline constexpr const char* kModello = "QzDBClienti.bck";

/// Columns of TAB_ANAG_CLIENTI, as texts go into them.
struct Cliente {
  /// The code as a field or a list holds it.
  QString codice{};
  QString ragioneSociale{};
  QString indirizzo{};
  QString citta{};
  QString partitaIVA{};
  QString nota{};
  std::int16_t stato = 0;
  bool operator==(const Cliente&) const = default;
};

/// Values of the column Stato; reception stores whatever other byte a till sends.
inline constexpr std::int16_t kStatoNonAssegnato = 0;
inline constexpr std::int16_t kStatoOrdinario = 1;
/// Made up from an invoice whose customer was not there: its texts are empty.
inline constexpr std::int16_t kStatoDaFattura = 2;
/// As the screens show it: "0", " ", and "*" for any other number.
QString StatoAVideo(std::int64_t stato);
/// Back from the field: "*" is 2, " " is 1, anything else 0.
std::int16_t StatoDaVideo(const QString& testo);

/// Whether the template lies beside the program; tells so under "ATTENZIONE" where it does not.
bool ControllaModello(Contesto& contesto);
/// Copies the template over `percorso` and opens it. What stood at `percorso` is kept beside it; returns the
/// path of that, empty if nothing stood there. Throws what archivio::CopiaModello and ApriDatabase throw.
QString NuovoDatabase(const QString& percorso, Contesto& contesto);
/// Opens the file and makes it the open archive. Nothing is checked: a database of another kind opens too and
/// is found by the first list. Throws Errore 3024, 3343, 3260 or 75; then DB_Clienti is as before.
void ApriDatabase(const QString& percorso, Contesto& contesto);
/// Closes the open archive, which commits what a command left open; does nothing with none open.
void ChiudiDatabase();

/// Number of customers, the anonymous one left out: 0 for an archive with him alone, -1 for one that has lost
/// even him, which its callers report. A failure is shown, and 0 comes back.
std::int32_t CalcolaNumClienti(Utente& utente);
/// Code of the next new customer: the highest one plus one, so a gap stays a gap. Throws.
std::int32_t ProssimoCodice();
/// Code of the highest customer; 0 for none, -1 for a failure of the store, which is not shown.
std::int32_t CodiceMassimo();

/// Of an archive with nobody to send.
inline constexpr const char16_t* kArchivioVuoto = u"Attenzione l'archivio degli clienti e' vuoto";
/// Of a VAT number, %1, that another customer bears.
inline constexpr const char16_t* kPartitaIVAAssociata =
    u"Attenzione la Partita IVA [%1] e' gia' associata ad un altro cliente!!!";
/// Results of CheckEsistenzaPartitaIVA.
inline constexpr std::int16_t kPartitaIVAPresente = 0;
inline constexpr std::int16_t kPartitaIVANonLetta = 1;
inline constexpr std::int16_t kPartitaIVALibera = -100;
/// Whether a customer bears this VAT number. Tells so, unless the reception stands on the customers; a
/// failure is shown.
std::int16_t CheckEsistenzaPartitaIVA(const QString& partitaIVA, Utente& utente);

// Statements of more than one screen.

/// A new customer or one changed, as the registry writes them.
store::Statement StatementNuovo(const Cliente& cliente);
store::Statement StatementModifica(const Cliente& cliente);
/// Takes the customer alone: invoices stay, and are listed again when the customer is back.
store::Statement StatementElimina(const QString& codice);

}  // namespace customers
