#pragma once

#include <QString>
#include <optional>

#include "ecrlink/session.h"
#include "platform/ui/wait_pointer.h"

/// What the person sees of a call while it waits for the till.
namespace ecrlink {

class VistaLink;

/// Makes a view the one that the steps of the calls are shown on, for its own life; then the one before is
/// again. Without any the calls are made in silence.
class AlLavoro {
 public:
  explicit AlLavoro(VistaLink& vista);
  ~AlLavoro();
  AlLavoro(const AlLavoro&) = delete;
  AlLavoro& operator=(const AlLavoro&) = delete;

 private:
  VistaLink* prima_;
};

/// One step, for its own life: the working pointer and its words, painted before the constructor comes back.
/// One that ends without `riuscito` has failed.
class Passo {
 public:
  Passo(const QString& parole, Contesto& contesto);
  ~Passo();
  Passo(const Passo&) = delete;
  Passo& operator=(const Passo&) = delete;

  void riuscito() { riuscito_ = true; }

 private:
  std::optional<WaitPointer> puntatore_;
  bool riuscito_ = false;
};

/// What a mode of the library does, in the person's words: "Invio di plu.bin".
QString paroleDelModo(Modo modo, const QString& file);
/// The words of the steps up to the till's first answer.
QString paroleDiConnessione();
/// The address in use as the person is told it.
QString indirizzoDetto();

}  // namespace ecrlink
