#pragma once

#include "platform/store/store.h"

namespace articles {

/// A transaction of the default workspace that undoes itself unless it was confirmed: whatever ends the unit,
/// a failed commit too, leaves the archive as before or as after, never between.
class Transazione {
 public:
  /// Begins it; throws what BeginTrans throws.
  explicit Transazione(store::Workspace& area) : area_(area) {
    area_.BeginTrans();
    livello_ = area_.level();
  }
  ~Transazione() {
    try {
      annulla();
    } catch (const Errore&) {
      aperta_ = false;  // the store has nothing left to undo: it did so by itself
    }
  }
  Transazione(const Transazione&) = delete;
  Transazione& operator=(const Transazione&) = delete;

  /// Commits; if this throws, the transaction still has to be undone.
  void conferma() {
    area_.CommitTrans();
    aperta_ = false;
  }
  /// Undoes it, once; nothing after `conferma`.
  void annulla() {
    if (!aperta_) return;
    aperta_ = false;
    if (area_.level() >= livello_) area_.Rollback();
  }

 private:
  store::Workspace& area_;
  int livello_ = 0;
  bool aperta_ = true;
};

}  // namespace articles
