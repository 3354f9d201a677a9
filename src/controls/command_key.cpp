#include "controls/command_key.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "controls/guarded_field.h"

namespace {

/// Fields know some of these keys as movements of the cursor; in a screen that gives them to a command they
/// are its.
class NotForFields : public QObject {
 public:
  NotForFields(QWidget& window, const QKeySequence& key) : QObject(&window), key_(key) {
    for (QLineEdit* field : window.findChildren<QLineEdit*>()) field->installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto& pressed = *static_cast<const QKeyEvent*>(event);
    if (QKeySequence(pressed.keyCombination()) != key_) return false;
    event->ignore();
    return true;
  }

 private:
  QKeySequence key_;
};

/// Some desktops take Enter for a press of whatever button has the focus.
class NotByEnter : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    event->accept();
    return true;
  }
};

QShortcut* shortcut(QWidget& control, const QKeySequence& key) {
  auto* made = new QShortcut(key, control.window());
  made->setAutoRepeat(false);
  new NotForFields(*control.window(), key);
  control.setToolTip(
      QStringLiteral("%1 (%2)").arg(control.toolTip(), key.toString(QKeySequence::NativeText)).trimmed());
  return made;
}

}  // namespace

void commandKey(QPushButton& button, const QKeySequence& key) {
  QObject::connect(shortcut(button, key), &QShortcut::activated, &button, [&button] {
    if (button.isEnabled() && GuardedField::settled(*button.window())) button.click();
  });
}

void fieldKey(QLineEdit& field, const QKeySequence& key) {
  QObject::connect(shortcut(field, key), &QShortcut::activated, &field, [&field] {
    field.setFocus(Qt::ShortcutFocusReason);
    field.selectAll();
  });
}

void notByEnter(QPushButton& button) {
  button.setAutoDefault(false);
  button.installEventFilter(new NotByEnter(&button));
}
