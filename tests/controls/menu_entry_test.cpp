#include "controls/menu_entry.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

namespace {

struct VoceDiMenu : testing::Test {
  MenuEntry voce;
  VoceDiMenu() { voce.setText(QStringLiteral(" Gestione Programmazione")); }
};

}  // namespace

TEST_F(VoceDiMenu, LaScrittaEPiuGrandeDiQuelleDelProgramma) {
  EXPECT_GT(voce.font().pointSizeF(), QApplication::font().pointSizeF());
}

TEST_F(VoceDiMenu, InvioTenutoPremutoNonLaRiapre) {
  QSignalSpy scelta(&voce, &MenuEntry::clicked);
  QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
  QApplication::sendEvent(&voce, &tenuto);
  EXPECT_EQ(scelta.count(), 0);
  QTest::keyClick(&voce, Qt::Key_Return);
  EXPECT_EQ(scelta.count(), 1);
}
