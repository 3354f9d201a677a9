#pragma once

#include <QString>

#include "core/contesto.h"
#include "core/schermate.h"
#include "platform/ecrcom/libreria.h"
#include "platform/store/store.h"
#include "platform/ui/utente_desktop.h"

class QApplication;
class QWidget;

/// Number format, names and look of the application; before the first screen.
void preparaApplicazione(QApplication& applicazione, const QString& cartella);

/// The program put together: what the screens are handed, and every screen registered by name.
class Montaggio {
 public:
  /// `cartella`: the application folder.
  explicit Montaggio(const QString& cartella);
  ~Montaggio();

  Contesto& contesto() { return contesto_; }
  /// Loads and shows the menu.
  QWidget& mostraMenu();

 private:
  store::Workspace area_;
  UtenteDesktop utente_;
  LibreriaEcr libreria_;
  Schermate schermate_;
  Contesto contesto_;
};
