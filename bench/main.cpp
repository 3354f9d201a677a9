#include <QApplication>
#include <QGuiApplication>
#include <clocale>

#include "bench/confronto.h"
#include "bench/limiti.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication applicazione(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return confronto::esegui(argc, argv, kLimiti) == 0 ? 0 : 1;
}
