#include "platform/ui/held_keys.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

struct TastiTenuti : testing::Test {
  QDialog finestra;
  QPushButton* comando = new QPushButton(QStringLiteral("OK"), &finestra);
  QSignalSpy premuto{comando, &QPushButton::clicked};

  TastiTenuti() {
    (new QVBoxLayout(&finestra))->addWidget(comando);
    ignoreHeldKeys(finestra);
    finestra.show();
    comando->setFocus();
  }
  /// A key that is down since before: only its repeats come.
  void ripeti(Qt::Key tasto) {
    QKeyEvent evento(QEvent::KeyPress, tasto, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(comando, &evento);
  }
};

}  // namespace

TEST_F(TastiTenuti, NonPremonoENonChiudono) {
  for (const Qt::Key tasto : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) ripeti(tasto);
  EXPECT_EQ(premuto.count(), 0);
  EXPECT_TRUE(finestra.isVisible());
}

TEST_F(TastiTenuti, PremutiDaCapoFannoIlLoroLavoro) {
  QTest::keyClick(comando, Qt::Key_Return);
  EXPECT_EQ(premuto.count(), 1);
  QTest::keyClick(comando, Qt::Key_Escape);
  EXPECT_FALSE(finestra.isVisible());
}
