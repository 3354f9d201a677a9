#include "controls/guarded_field.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "controls/field_hint.h"

namespace {

constexpr QChar kComma = u',';

/// While a field takes the focus back: the one that loses it by that has not been left by the person.
bool takenBack = false;

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

bool onlyModifier(const QKeyEvent& key) {
  return key.key() == Qt::Key_Shift || key.key() == Qt::Key_Control || key.key() == Qt::Key_Alt ||
         key.key() == Qt::Key_AltGr || key.key() == Qt::Key_Meta || key.key() == Qt::Key_CapsLock;
}

qsizetype commonStart(const QString& one, const QString& other) {
  const auto [a, b] = std::mismatch(one.begin(), one.end(), other.begin(), other.end());
  return a - one.begin();
}

}  // namespace

GuardedField::GuardedField(QLineEdit& field, KeyRule rule, FieldCheck check, Tell tell)
    : QObject(&field),
      field_(field),
      rule_(rule),
      check_(std::move(check)),
      tell_(std::move(tell)),
      hint_(new FieldHint(field)),
      before_(field.text()) {
  field.installEventFilter(this);
  connect(&field, &QLineEdit::textEdited, this, &GuardedField::filterInserted);
  connect(&field, &QLineEdit::inputRejected, this, &GuardedField::tellFull);
  connect(&field, &QLineEdit::textChanged, this, [this] {
    before_ = field_.text();
    if (before_ != told_) hint_->withdraw();
  });
}

bool GuardedField::settled(const QWidget& window) {
  const QWidget* const field = window.focusWidget();
  auto* const guard = field ? field->findChild<GuardedField*>({}, Qt::FindDirectChildrenOnly) : nullptr;
  return guard == nullptr || guard->accepted();
}

/// Why the key is dropped, nothing for one that is taken.
std::optional<QString> GuardedField::refusal(const QKeyEvent& key) const {
  if (rule_.takes == nullptr) return std::nullopt;
  const QString text = field_.text();
  const auto ask = [&](QChar typed) -> std::optional<QString> {
    if (rule_.takes(text, typed)) return std::nullopt;
    return rule_.why ? rule_.why(text, typed) : QString();
  };
  if (key.matches(QKeySequence::Cut)) return ask(kCutKey);
  // What comes back by undoing would be filtered as if typed, and a price shown with a point would lose it.
  if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo))
    return QStringLiteral("Qui non si annulla: riscrivere il valore");
  if (keyboardCommand(key)) return std::nullopt;
  const QString written = key.text();
  if (written.isEmpty() || !written.front().isPrint()) return std::nullopt;
  return ask(written.front());
}

bool GuardedField::typesComma(const QKeyEvent& key) const {
  const bool decimal = key.modifiers().testFlag(Qt::KeypadModifier) && key.text() == QLatin1String(".");
  return decimal && rule_.takes != nullptr && !rule_.takes(field_.text(), u'.');
}

/// True if the key goes no further.
bool GuardedField::keyPressed(const QKeyEvent& key) {
  if (typesComma(key)) {
    QKeyEvent comma(QEvent::KeyPress, Qt::Key_Comma, Qt::NoModifier, QString(kComma), key.isAutoRepeat());
    QCoreApplication::sendEvent(&field_, &comma);
    return true;
  }
  const std::optional<QString> why = refusal(key);
  if (!why) {
    if (!onlyModifier(key)) hint_->withdraw();
    return false;
  }
  told_ = field_.text();
  if (!why->isEmpty()) hint_->tell(*why);
  return true;
}

bool GuardedField::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::KeyPress) return keyPressed(*static_cast<const QKeyEvent*>(event));
  if (event->type() == QEvent::FocusOut) left(static_cast<const QFocusEvent*>(event)->reason());
  return false;
}

void GuardedField::tellFull() {
  const int most = field_.maxLength();
  told_ = field_.text();
  hint_->tell(most == 1 ? QStringLiteral("Un carattere solo: cancellare prima di scrivere")
                        : QStringLiteral("Al massimo %1 caratteri").arg(most));
}

void GuardedField::filterInserted(const QString& now) {
  if (rule_.takes == nullptr) return;
  const qsizetype head = std::min(commonStart(before_, now), field_.cursorPosition() + qsizetype{0});
  const QString rest = now.mid(field_.cursorPosition());
  QString text = now.left(head);
  QString why;
  for (const QChar character : now.mid(head, field_.cursorPosition() - head)) {
    if (rule_.takes(text + rest, character))
      text += character;
    else if (why.isEmpty() && rule_.why)
      why = rule_.why(text + rest, character);
  }
  if (text + rest == now) return;
  told_ = text + rest;
  field_.setText(told_);
  field_.setCursorPosition(static_cast<int>(text.size()));
  if (!why.isEmpty()) hint_->tell(why);
}

/// False for a text that may not stay: it has been replaced, and the person told.
bool GuardedField::accepted() {
  const std::optional<Rejection> rejection = check_ ? check_(field_.text()) : std::nullopt;
  if (!rejection) return true;
  field_.setText(rejection->value);
  if (tell_) tell_(rejection->message);
  return false;
}

void GuardedField::left(Qt::FocusReason reason) {
  hint_->withdraw();
  if (takenBack || elsewhere(reason) || !field_.isVisible() || accepted()) return;
  QMetaObject::invokeMethod(qApp, raiseButton, Qt::QueuedConnection);
  // Not yet: the focus is on its way to where the person wanted to go.
  QMetaObject::invokeMethod(this, &GuardedField::takeFocusBack, Qt::QueuedConnection);
}

void GuardedField::takeFocusBack() {
  if (!field_.isVisible() || !field_.isEnabled()) return;
  {
    const QScopedValueRollback back(takenBack, true);
    field_.setFocus(Qt::OtherFocusReason);
  }
  field_.selectAll();
}
