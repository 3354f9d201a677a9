#include <QApplication>
#include <cstdlib>

#include "bench/dipinta.h"
#include "montaggio.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" GESTIONALE_SCHERMO);
  QApplication applicazione(argc, argv);
  const QString cartella = QStringLiteral(GESTIONALE_APP);
  preparaApplicazione(applicazione, cartella);
  Montaggio programma(cartella);
  const Dipinta fine(programma.mostraMenu());
  std::_Exit(QApplication::exec());
}
