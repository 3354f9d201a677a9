#include <QApplication>
#include <QDir>
#include <optional>

#include "core/paths.h"
#include "platform/error.h"
#include "platform/ui/desktop_user.h"
#include "program.h"

namespace {

/// Nothing, after a box, where no folder of the program's files can be had.
std::optional<QString> applicationFolder(const Cartelle& places) {
  try {
    return CartellaApplicazione(places);
  } catch (const Errore& error) {
    DesktopUser(nullptr).MsgBox(error.descrizione, Icon::Critical);
    return std::nullopt;
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const Cartelle places = CartelleDelSistema();
  const std::optional<QString> folder = applicationFolder(places);
  if (!folder) return EXIT_FAILURE;
  // The transfer files go to the current folder.
  QDir::setCurrent(CartellaTrasferimenti(places, QDir::currentPath(), *folder));
  prepareApplication(application, *folder);
  Program program(*folder);
  program.showMenu();
  return QApplication::exec();
}
