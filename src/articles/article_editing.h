#pragma once

#include <QString>
#include <functional>

struct Contesto;

/// A new article and the deletion of one, with the journal of what the till has not seen yet and the upkeep
/// of the positions. Both are one transaction. No control of the archive screen calls them.
namespace articles {

struct CampiArticolo;

/// What the archive screen does for these operations. Every member may be empty.
struct SchermoArticoli {
  /// Switches the screen's commands off (true) and on again (false).
  std::function<void(bool)> BloccaComandi;
  /// Shows the wait screen (true) and closes it (false) around the upkeep of the positions, which may write
  /// every row twice.
  std::function<void(bool)> Attesa;
  /// Empties the fields.
  std::function<void()> Cancella_TextBox;
  /// Fills the grid anew.
  std::function<void()> Tasto_Refresh;
};

/// Adds an article with what stands in the fields; the EAN is padded there with blanks to 13 characters. On
/// an archive assigned to a till the journal gets an 'I', or its 'C' of the same EAN becomes one. True if the
/// article stands in the archive; else it is as before and the person has been told. Throws Errore, with
/// everything undone, where a query or the commit fails and where the price is out of range.
bool InserimentoArticolo(CampiArticolo& campi, Contesto& contesto, const SchermoArticoli& schermo);

/// Tasto_Cancella on the article of the EAN field, if there is one.
bool EliminaSelezionato(const CampiArticolo& campi, Contesto& contesto, const SchermoArticoli& schermo);

/// Deletes every row that bears `ean`, after asking. On an archive assigned to a till an 'I' or 'U' of the
/// journal goes with it, since the till never had the article; else the journal gets a 'C' and positions and
/// checksums are brought up to date. True if it is done; else the archive is as before. The commands are on
/// again at its end, however it ends. Throws Errore, with everything undone, where a query or the commit
/// fails.
bool Tasto_Cancella(const QString& ean, Contesto& contesto, const SchermoArticoli& schermo);

}  // namespace articles
