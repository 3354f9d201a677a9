#pragma once

#include <QString>

struct Contesto;

/// A new article and the deletion of one, with the table of changes that the till has not seen yet and the
/// upkeep of the positions. Each is one transaction. No control of the archive screen calls them.
namespace articles {

struct CampiArticolo;

/// What these operations ask of the screen that they run for.
class SchermoArticoli {
 public:
  SchermoArticoli() = default;
  SchermoArticoli(const SchermoArticoli&) = delete;
  SchermoArticoli& operator=(const SchermoArticoli&) = delete;
  virtual ~SchermoArticoli() = default;

  /// Switches the screen's commands off (true) and on again (false).
  virtual void BloccaComandi(bool bloccati) = 0;
  /// Empties the fields.
  virtual void Cancella_TextBox() = 0;
  /// Fills the grid anew.
  virtual void Tasto_Refresh() = 0;
};

/// Adds an article with what stands in the fields; the EAN is padded there with blanks to 13 characters. On
/// an archive assigned to a till the table of variations gets an 'I', or its 'C' of the same EAN becomes one.
/// True if the article stands in the archive; else it is as before and the person has been told. Throws
/// Errore, with everything undone, where a query or the commit fails and where the price is out of range.
bool InserimentoArticolo(CampiArticolo& campi, Contesto& contesto, SchermoArticoli& schermo);

/// Tasto_Cancella on the article of the EAN field, if there is one.
bool EliminaSelezionato(const CampiArticolo& campi, Contesto& contesto, SchermoArticoli& schermo);

/// Deletes every row that bears `ean`, after asking. On an archive assigned to a till its 'I' or 'U' in the
/// table of variations goes with it, since the till never had the article; else that table gets a 'C' and
/// positions and checksums are brought up to date. True if it is done; else the archive is as before. The
/// commands are on again at its end, however it ends. Throws Errore, with everything undone, where a query or
/// the commit fails.
bool Tasto_Cancella(const QString& ean, Contesto& contesto, SchermoArticoli& schermo);

}  // namespace articles
