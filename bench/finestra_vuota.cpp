#include <QApplication>
#include <QWidget>
#include <cstdlib>

#include "bench/dipinta.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" GESTIONALE_SCHERMO);
  QApplication applicazione(argc, argv);
  QWidget finestra;
  finestra.resize(1000, 700);
  const Dipinta fine(finestra);
  finestra.show();
  std::_Exit(QApplication::exec());
}
