#include "controls/guarded_field.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>
#include <utility>

namespace {

/// A box shown between the press and the release of a button takes the release away: the button would stay
/// down.
void raiseButton() {
  auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
  if (button && !QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) button->setDown(false);
}

/// Leaving for another window, a menu or a list is no leaving.
bool elsewhere(Qt::FocusReason reason) {
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
         reason == Qt::MenuBarFocusReason;
}

/// Copying, pasting and the like write no character of their own. Control with Alt is how some keyboards
/// reach a character.
bool keyboardCommand(const QKeyEvent& key) {
  return key.modifiers().testFlag(Qt::ControlModifier) && !key.modifiers().testFlag(Qt::AltModifier);
}

qsizetype commonStart(const QString& one, const QString& other) {
  const auto [a, b] = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
  return a - one.begin();
}

}  // namespace

GuardedField::GuardedField(QLineEdit& field, KeyFilter filter, FieldCheck check, Tell tell)
    : QObject(&field),
      field_(field),
      filter_(filter),
      check_(check),
      tell_(std::move(tell)),
      before_(field.text()) {
  field.installEventFilter(this);
  connect(&field, &QLineEdit::textEdited, this, &GuardedField::filterInserted);
  connect(&field, &QLineEdit::textChanged, this, [this] { before_ = field_.text(); });
}

bool GuardedField::takes(const QString& text, const QKeyEvent& key) const {
  if (key.matches(QKeySequence::Cut)) return filter_(text, kCutKey);
  // What comes back by undoing would be filtered as if typed, and a price shown with a point would lose it.
  if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)) return false;
  if (keyboardCommand(key)) return true;
  const QString written = key.text();
  return written.isEmpty() || !written.front().isPrint() || filter_(text, written.front());
}

bool GuardedField::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::KeyPress) return !takes(field_.text(), *static_cast<const QKeyEvent*>(event));
  if (event->type() == QEvent::FocusOut) left(static_cast<const QFocusEvent*>(event)->reason());
  return false;
}

void GuardedField::filterInserted(const QString& now) {
  const qsizetype head = std::min(commonStart(before_, now), field_.cursorPosition() + qsizetype{0});
  const QString rest = now.mid(field_.cursorPosition());
  QString text = now.left(head);
  for (const QChar character : now.mid(head, field_.cursorPosition() - head))
    if (filter_(text + rest, character)) text += character;
  if (text + rest == now) return;
  field_.setText(text + rest);
  field_.setCursorPosition(static_cast<int>(text.size()));
}

void GuardedField::left(Qt::FocusReason reason) {
  if (!check_ || elsewhere(reason) || !field_.isVisible()) return;
  const std::optional<Rejection> rejection = check_(field_.text());
  if (!rejection) return;
  field_.setText(rejection->value);
  tell_(rejection->message);
  QMetaObject::invokeMethod(qApp, raiseButton, Qt::QueuedConnection);
}
