#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <cstdlib>

#include "bench/painted.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" GESTIONALE_DISPLAY);
  QApplication application(argc, argv);
  QWidget window;
  auto* column = new QVBoxLayout(&window);
  column->addWidget(new QLabel(QStringLiteral("Gestione Articoli MMC")));
  window.resize(1000, 700);
  const Painted end(window);
  window.show();
  std::_Exit(QApplication::exec());
}
