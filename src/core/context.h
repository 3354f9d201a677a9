#pragma once

#include <QString>

class Utente;
class Rete;
class LibreriaEcr;
class Schermate;
namespace store {
class Workspace;
}

/// What main hands to every screen and procedure beyond the process-wide variables. Everything in it
/// outlives the screens.
struct Contesto {
  Utente& utente;
  store::Workspace& area;
  LibreriaEcr& libreria;
  Rete& rete;
  Schermate& schermate;
  /// The application folder, without a separator at its end.
  QString cartella;
};
