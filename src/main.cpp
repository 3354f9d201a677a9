#include <QApplication>

#include "core/percorsi.h"
#include "montaggio.h"

int main(int argc, char** argv) {
  QApplication applicazione(argc, argv);
  const QString cartella = CartellaApplicazione();
  preparaApplicazione(applicazione, cartella);
  Montaggio programma(cartella);
  programma.mostraMenu();
  return QApplication::exec();
}
