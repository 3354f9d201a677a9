#pragma once

#include <QString>
#include <utility>

#include "core/context.h"
#include "core/reactions.h"
#include "platform/ui/busy_guard.h"

/// One command of the person's, from its first step to its last. While it lives, keys and clicks are eaten,
/// and what was pressed meanwhile starts nothing behind it. At its end the store commits what the command
/// left open: what the screen shows is on the disk. A commit that fails is told and undone.
class Comando {
 public:
  /// `procedura` and `modulo` name it in the message of an unexpected failure.
  Comando(Contesto& contesto, QString procedura, QString modulo);
  ~Comando();
  Comando(const Comando&) = delete;
  Comando& operator=(const Comando&) = delete;

 private:
  Contesto& contesto_;
  QString procedura_;
  QString modulo_;
  BusyGuard occupato_;
  /// Of the transactions that stood open before.
  int livello_;
};

/// What every slot of a screen runs in: a `Comando` that nothing leaves.
template <typename Corpo>
void comando(Contesto& contesto, const char* procedura, const QString& modulo, Corpo&& corpo) noexcept {
  const QString nome = QLatin1String(procedura);
  reazioni::protetta(contesto.utente, nome, modulo, [&] {
    const Comando questo(contesto, nome, modulo);
    std::forward<Corpo>(corpo)();
  });
}
