#include <QApplication>
#include <QDir>
#include <optional>

#include "core/percorsi.h"
#include "montaggio.h"
#include "platform/errore.h"
#include "platform/ui/utente_desktop.h"

namespace {

/// Nothing, after a box, where no folder of the program's files can be had.
std::optional<QString> cartellaApplicazione() {
  try {
    return CartellaApplicazione(CartelleDelSistema());
  } catch (const Errore& errore) {
    UtenteDesktop(nullptr).MsgBox(errore.descrizione, Icona::Critica);
    return std::nullopt;
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication applicazione(argc, argv);
  const std::optional<QString> cartella = cartellaApplicazione();
  if (!cartella) return EXIT_FAILURE;
  // The transfer files go to the current folder: started where it may not write, the program moves to its
  // own.
  if (!Scrivibile(QDir::currentPath())) QDir::setCurrent(*cartella);
  preparaApplicazione(applicazione, *cartella);
  Montaggio programma(*cartella);
  programma.mostraMenu();
  return QApplication::exec();
}
