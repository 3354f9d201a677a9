#pragma once

#include <QString>
#include <chrono>

class QWidget;
class Clock;
class Utente;
class Network;
class EcrLibrary;
class Schermate;
namespace store {
class Workspace;
}

/// What main hands to every screen and procedure beyond the process-wide variables. Everything in it
/// outlives the screens.
struct Contesto {
  Utente& utente;
  store::Workspace& area;
  EcrLibrary& libreria;
  Network& rete;
  Schermate& schermate;
  const Clock& orologio;
  /// The application folder, without a separator at its end.
  QString cartella;
  /// How long a work lasts before its wait box is worth making.
  std::chrono::milliseconds attesaDopo{120};
  /// What the screen that is made next stands in; null for a window of its own. The screen takes it.
  QWidget* dentro = nullptr;
};
