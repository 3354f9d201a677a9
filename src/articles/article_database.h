#pragma once

#include <QString>
#include <cstdint>

class Utente;
struct Contesto;

/// The article database: one file with the slots of the till, the settings of the archive and the sales. One
/// at a time is open, `varGlobal().DB_Articoli`; every statement works on whichever that is at the moment.
namespace articles {

/// Template of a new archive, in the application folder.
inline constexpr const char* kModello = "QzDB.bck";
/// `NomeCassa` of an archive that belongs to no till.
inline constexpr const char* kNonAssegnato = "NON_ASSEGNATO";

/// Results of GetCodiceEAN.
inline constexpr std::int16_t kEanLibero = 123;
inline constexpr std::int16_t kEanDuplicato = 124;

/// Path of the template beside the program.
QString percorsoModello(const Contesto& contesto);
/// Tells that the template is missing, under "ATTENZIONE"; nothing if it is there. The caller goes on.
void avvisaModelloAssente(Contesto& contesto);

/// Copies the template over `percorso` and opens it. The archive open before is let go, not closed. What
/// stood at `percorso` is kept beside it, in place of what was kept so before; returns the path of that,
/// empty if nothing stood there. Throws Errore 53 for a missing template, 61, 70, 75 or 3260 for a failed
/// copy of either, and what ApriDatabase throws; then the file at `percorso` is as before.
QString NuovoDatabase(const QString& percorso, Contesto& contesto);
/// Opens the file and makes it the open archive. Nothing is checked: a database of another kind opens too and
/// is found by the first fill. Throws Errore 3024, 3343, 3260 or 75; then DB_Articoli is as before.
void ApriDatabase(const QString& percorso, Contesto& contesto);
/// Closes the open archive, which commits what a command left open; does nothing with none open.
void ChiudiDatabase();

/// -1 if the archive is assigned to a till, 0 if not; of several rows one assigned is enough. Failures are
/// shown, and what was found up to there is returned.
std::int16_t CheckTabVarie(Utente& utente);
/// Number of rows of TAB_ARTICOLI, empty slots included; 0 for none, -1 for a failure, which has been shown.
std::int32_t CalcolaNumArticoli(Utente& utente);
/// kEanDuplicato if a row other than `auto_id` bears this EAN, kEanLibero otherwise and after a failure,
/// which has been shown. An apostrophe in the EAN breaks the statement.
std::int16_t GetCodiceEAN(std::int32_t auto_id, const QString& ean, Utente& utente);

}  // namespace articles
