#include "sostegno/guided_screen.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

void postClick(QWidget& widget) {
  const QPointF centre = widget.rect().center();
  const QPointF onScreen = widget.mapToGlobal(centre);
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
    QCoreApplication::postEvent(
        &widget,
        new QMouseEvent(type, centre, onScreen, Qt::LeftButton,
                        type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
}

GuidedScreen::GuidedScreen(ProgramFixture& program, const QString& name)
    : window_(&program.screens.mostra(name, program.contesto)) {
  EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
}

bool GuidedScreen::alive() const {
  return window_ && window_->isVisible();
}

QString GuidedScreen::text(const QString& name) const {
  const QWidget& one = control(name);
  if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&one)) return lines->toPlainText();
  return one.property("text").toString();
}

QString GuidedScreen::focus() const {
  const QWidget* where = window_->focusWidget();
  return where ? where->objectName() : QString();
}

void GuidedScreen::click(const QString& name) const {
  QTest::mouseClick(&control(name), Qt::LeftButton);
}

void GuidedScreen::key(Qt::Key key) const {
  QWidget* where = window_->focusWidget();
  QTest::keyClick(where ? where : window_.data(), key);
}

void GuidedScreen::type(const QString& field, const QString& keys) const {
  auto& box = control<QLineEdit>(field);
  QTest::mouseClick(&box, Qt::LeftButton);
  box.selectAll();
  QTest::keyClick(&box, Qt::Key_Backspace);
  QTest::keyClicks(&box, keys);
}

void GuidedScreen::typeAddress(const QString& address) const {
  auto& box = control<QLineEdit>("vkTextBoxIP_ECR");
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, address);
  if (address.isEmpty()) QTest::keyClick(&box, Qt::Key_Delete);
}

void GuidedScreen::connectTo(TestTill& till) const {
  typeAddress(till.address());
  click(QStringLiteral("CmdInviaModECR"));
}

void GuidedScreen::impatience(const QString& command) const {
  postClick(control(command));
  postClick(control("Cmd_Esci"));
  QCoreApplication::postEvent(window_, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
  QCoreApplication::postEvent(window_, new QCloseEvent);
}

void expectFitsAtTwelvePoints(const GuidedScreen& screen) {
  QFont large = screen.window().font();
  large.setPointSize(12);
  screen.window().setFont(large);
  QCoreApplication::processEvents();
  EXPECT_LE(screen.window().minimumSizeHint().width(), 1024);
  screen.window().resize(screen.window().minimumSizeHint());
  QCoreApplication::processEvents();
  for (const QLabel* caption : screen.window().findChildren<QLabel*>()) {
    if (!caption->isVisible() || caption->wordWrap() || caption->text().isEmpty()) continue;
    EXPECT_GE(caption->width(), caption->sizeHint().width()) << caption->text().toStdString();
  }
}

void withModal(const std::function<void()>& gesture, const std::function<void(QWidget&)>& within) {
  bool entered = false;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    // A screen that fills itself lets events through before it shows.
    QPointer<QWidget> modal = QApplication::activeModalWidget();
    if (!modal) return;
    timer.stop();
    entered = true;
    within(*modal);
    if (modal && modal->isVisible()) {
      ADD_FAILURE() << "the modal screen stayed open";
      modal->close();
    }
  });
  timer.start(0);
  gesture();
  EXPECT_TRUE(entered) << "no modal screen";
}
