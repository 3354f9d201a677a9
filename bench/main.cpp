#include <QApplication>
#include <QGuiApplication>
#include <clocale>

#include "bench/comparison.h"
#include "bench/limits.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return comparison::run(argc, argv, kLimits) == 0 ? 0 : 1;
}
