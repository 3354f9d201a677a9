#include <QApplication>

#include "montaggio.h"

int main(int argc, char** argv) {
  QApplication applicazione(argc, argv);
  const QString cartella = QCoreApplication::applicationDirPath();
  preparaApplicazione(applicazione, cartella);
  Montaggio programma(cartella);
  programma.mostraMenu();
  return QApplication::exec();
}
