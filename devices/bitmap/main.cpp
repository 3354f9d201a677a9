#include <QCoreApplication>
#include <cstdio>

#include "bitmap/converter.h"

/// bitmap.exe WIDTH "PATH: the picture for a printer of that width into a file beside it.
/// Returns 0; 1 for a refused picture, whose file is empty; 2 for an order that is none, without a file.
int main(int argc, char** argv) {
  constexpr int kRefused = 1;
  constexpr int kNoOrder = 2;
  const QCoreApplication application(argc, argv);
  const auto order = bitmap::ReadOrder(QCoreApplication::arguments().mid(1));
  if (!order) {
    std::fputs("uso: bitmap.exe 384|640 \"FILE.bmp\n", stderr);
    return kNoOrder;
  }
  return bitmap::ConvertFile(*order) ? 0 : kRefused;
}
