#pragma once

#include <QString>

#include "core/context.h"
#include "core/help_key.h"
#include "core/screens.h"
#include "platform/clock.h"
#include "platform/ecrcom/library.h"
#include "platform/store/store.h"
#include "platform/ui/desktop_user.h"

class QApplication;
class QWidget;

/// Number format, names and look of the application; before the first screen.
void prepareApplication(QApplication& application, const QString& folder);

/// The program put together: what the screens are handed, and every screen registered by name.
class Program {
 public:
  /// `folder`: the application folder.
  explicit Program(const QString& folder, const Clock& clock = systemClock());
  ~Program();

  Contesto& contesto() { return contesto_; }
  /// Loads and shows the menu.
  QWidget& showMenu();

 private:
  store::Workspace workspace_;
  DesktopUser utente_;
  EcrLibrary library_;
  Schermate screens_;
  Contesto contesto_;
  HelpKey help_{contesto_};
};
