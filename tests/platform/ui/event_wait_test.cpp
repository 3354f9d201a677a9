#include "platform/ui/event_wait.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/ui/busy_guard.h"

namespace {

constexpr int kAttesa = 60;  // milliseconds

}  // namespace

TEST(AttesaDiUnEvento, DormeFinoAlTempoERitornaQuandoEScaduto) {
  bool scaduto = false;
  QTimer::singleShot(kAttesa, qApp, [&] { scaduto = true; });
  QElapsedTimer cronometro;
  cronometro.start();
  int risvegli = 0;
  while (!scaduto && cronometro.elapsed() < 5000) {
    WaitForEvent();
    ++risvegli;
  }
  EXPECT_TRUE(scaduto);
  EXPECT_GE(cronometro.elapsed(), kAttesa - 5);
  // One that does not sleep comes round tens of thousands of times.
  EXPECT_LT(risvegli, 200);
}

TEST(AttesaDiUnEvento, QuelloCheEGiaPostatoNonSiAspetta) {
  bool passato = false;
  QMetaObject::invokeMethod(
      qApp, [&] { passato = true; }, Qt::QueuedConnection);
  WaitForEvent();
  EXPECT_TRUE(passato);
}

TEST(AttesaDiUnEvento, SottoLaGuardiaIClicSonoMangiati) {
  QPushButton tasto;
  int clic = 0;
  QObject::connect(&tasto, &QPushButton::clicked, &tasto, [&] { ++clic; });
  tasto.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&tasto));
  const BusyGuard guardia;
  bool passato = false;
  QTimer::singleShot(0, &tasto, [&] {
    QTest::mouseClick(&tasto, Qt::LeftButton);
    passato = true;
  });
  QElapsedTimer cronometro;
  cronometro.start();
  while (!passato && cronometro.elapsed() < 5000) WaitForEvent();
  EXPECT_TRUE(passato);
  EXPECT_EQ(clic, 0);
}
