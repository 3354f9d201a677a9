#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("FONTCONFIG_FILE", GESTIONALE_SOURCES "/tests/sostegno/fonts.conf");
  testing::InitGoogleMock(&argc, argv);
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
