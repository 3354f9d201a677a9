#include <QApplication>
#include <cstdlib>

#include "bench/painted.h"
#include "program.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" GESTIONALE_DISPLAY);
  QApplication application(argc, argv);
  const QString folder = QStringLiteral(GESTIONALE_APP);
  prepareApplication(application, folder);
  Program program(folder);
  const Painted end(program.showMenu());
  std::_Exit(QApplication::exec());
}
