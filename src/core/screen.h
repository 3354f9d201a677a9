#pragma once

#include <QString>
#include <utility>

#include "core/command.h"
#include "core/screen_foot.h"

/// What every screen stands on: what main hands it, and the guard that its slots run in.
/// `Finestra`: the kind of window that it is.
template <typename Finestra>
class Schermo : public Finestra {
 public:
  explicit Schermo(Contesto& contesto)
      : Finestra(std::exchange(contesto.dentro, nullptr)), contesto_(contesto) {}

 protected:
  Contesto& contesto() { return contesto_; }
  const Contesto& contesto() const { return contesto_; }

  /// Runs a slot as a command of the person's. `procedura` names it in the message of an unexpected failure.
  /// What an earlier command said at the foot goes, unless this one only looks; a command that failed and
  /// told nothing there is told by its gravest box.
  template <typename Corpo>
  void esegui(const char* procedura, Corpo&& corpo, Piede piede = Piede::Nuovo) {
    PiedeComando racconto(*this, contesto_, piede);
    comando(contesto_, procedura, this->objectName(), std::forward<Corpo>(corpo));
  }

 private:
  Contesto& contesto_;
};
