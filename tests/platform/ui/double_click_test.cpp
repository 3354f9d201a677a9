#include "platform/ui/double_click.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QStyleHints>
#include <QTest>
#include <QWindow>

namespace {

/// Two screens at one place, each all button; the clicks come as the window system sends them.
class DoppioClic : public testing::Test {
 protected:
  DoppioClic() {
    for (QPushButton* tasto : {&menu_, &aperta_}) {
      tasto->setGeometry(100, 100, 200, 80);
      tasto->show();
      EXPECT_TRUE(QTest::qWaitForWindowExposed(tasto));
    }
    QObject::connect(&menu_, &QPushButton::clicked, [this] { ++clicMenu_; });
    QObject::connect(&aperta_, &QPushButton::clicked, [this] { ++clicAperta_; });
  }

  void clicca(QWidget& schermo, qulonglong quando, QPointF dove = {20, 20}) {
    manda(schermo, QEvent::MouseButtonPress, quando, dove);
    manda(schermo, QEvent::MouseButtonRelease, quando + 30, dove);
  }

  DoubleClickStopper guardia_{qApp};
  QPushButton menu_;
  QPushButton aperta_;
  int clicMenu_ = 0;
  int clicAperta_ = 0;
  const qulonglong attesa_ =
      static_cast<qulonglong>(QGuiApplication::styleHints()->mouseDoubleClickInterval());

 private:
  void manda(QWidget& schermo, QEvent::Type tipo, qulonglong quando, QPointF dove) {
    const auto premuti = tipo == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent evento(tipo, dove, dove, schermo.mapToGlobal(dove), Qt::LeftButton, premuti, Qt::NoModifier);
    evento.setTimestamp(quando);
    QApplication::sendEvent(schermo.windowHandle(), &evento);
  }
};

}  // namespace

TEST_F(DoppioClic, LaSecondaMetaNonTocaLoSchermoApertoDallaPrima) {
  clicca(menu_, 1000);
  clicca(aperta_, 1100);
  EXPECT_EQ(clicMenu_, 1);
  EXPECT_EQ(clicAperta_, 0);
}

TEST_F(DoppioClic, NemmenoUnTerzoClicNelloStessoTempo) {
  clicca(menu_, 1000);
  clicca(aperta_, 1100);
  clicca(aperta_, 1200);
  EXPECT_EQ(clicAperta_, 0);
}

TEST_F(DoppioClic, FinitoIlTempoIlClicVale) {
  clicca(menu_, 1000);
  clicca(aperta_, 1000 + attesa_);
  EXPECT_EQ(clicAperta_, 1);
  clicca(aperta_, 1100 + attesa_);
  EXPECT_EQ(clicAperta_, 2);
}

TEST_F(DoppioClic, UnClicAltroveVale) {
  clicca(menu_, 1000);
  clicca(aperta_, 1100, {120, 50});
  EXPECT_EQ(clicAperta_, 1);
}

TEST_F(DoppioClic, NelloStessoSchermoIlSecondoClicVale) {
  clicca(menu_, 1000);
  clicca(menu_, 1100);
  EXPECT_EQ(clicMenu_, 2);
}

TEST_F(DoppioClic, UnaTendinaRiceveOgniClic) {
  clicca(menu_, 1000);
  QPushButton tendina;
  tendina.setWindowFlag(Qt::Popup);
  tendina.setGeometry(menu_.geometry());
  tendina.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&tendina));
  int clic = 0;
  QObject::connect(&tendina, &QPushButton::clicked, [&] { ++clic; });
  clicca(tendina, 1100);
  EXPECT_EQ(clic, 1);
}
