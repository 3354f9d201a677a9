#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "core/state.h"

class OutcomeBar;
struct Contesto;

/// What the editors of a configuration have changed and nobody has saved yet: one flag an editor in
/// `varGestionePRG()`, and the way from the screens into memory and file.
namespace editors {

/// An editor as the workspace sees it, whichever records it edits.
class Editor {
 public:
  virtual ~Editor() = default;
  /// Whether all that stands on the screen can be saved; what cannot is shown and told.
  virtual bool pronto() { return true; }
  /// The screen's values into the records in memory; nothing of the file.
  virtual void salvaInMemoria() = 0;
  /// The screen built and filled anew from memory; what was typed goes.
  virtual void ricarica() = 0;
};

/// Whether any flag is set.
bool ciSonoModifiche();
/// All seven flags cleared.
void azzeraModifiche();

/// The question of the guard in front of every command: whether to save what has been modified.
bool chiediDiSalvare(Contesto& contesto);

/// What became of a save: for the foot.
struct EsitoSalvataggio {
  /// False where it failed, which has been shown.
  bool salvato = false;
  /// "Salvato: 3 reparti"
  QString racconto = {};
  /// Titles of the open editors whose changes were not among what was saved, and have lost their mark.
  QStringList perse = {};
};

/// Moves the screen of the first flag that is set into memory, saves the configuration and clears all seven
/// flags; those stay set, and memory is as before, where an editor was not ready or the save failed. What a
/// second editor has changed stays on its screen alone: the till's programme takes one editor's changes at a
/// time. An editor that has been unloaded meanwhile has nothing left to move.
EsitoSalvataggio SalvaModificati(Contesto& contesto);

/// Clears the flags of departments to options and fills every open editor from memory.
void RicaricaEditor(Contesto& contesto);

/// Saves one editor as its own command does: screen into memory, memory into the file, its flag cleared.
/// Where that failed the flag stays set, and memory is as before.
EsitoSalvataggio SalvaEditor(Editor& editor, Bandiera& modificato, Contesto& contesto);
/// The same under the wait pointer, which stays until `salvato` has shown what is in the file now; the foot
/// tells what became of it.
void SalvaEditorRaccontando(Editor& editor, Bandiera& modificato, const std::function<void()>& salvato,
                            OutcomeBar& piede, Contesto& contesto);

}  // namespace editors
