#include "system/keyboard_walk.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <algorithm>

namespace walk {

namespace {

/// A text with many links takes a Tab for each.
constexpr int kMostTabs = 2000;

QString nameOf(const QWidget& widget) {
  const QString name = widget.objectName().isEmpty() ? QStringLiteral("(no name)") : widget.objectName();
  return name + QStringLiteral(" [") + QLatin1String(widget.metaObject()->className()) + u']';
}

bool readOnlyText(const QWidget& widget) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return line->isReadOnly();
  if (const auto* plain = qobject_cast<const QPlainTextEdit*>(&widget)) return plain->isReadOnly();
  return false;
}

/// Something of the toolkit's inside a control, which works it by other keys.
bool pieceOfAControl(const QWidget& widget) {
  const QWidget* above = widget.parentWidget();
  return qobject_cast<const QLineEdit*>(above) || qobject_cast<const QComboBox*>(above) ||
         qobject_cast<const QAbstractSpinBox*>(above) || qobject_cast<const QTabBar*>(above) ||
         qobject_cast<const QAbstractItemView*>(above) || qobject_cast<const QMenuBar*>(above);
}

/// What a person can click to any effect. A text that is only shown is read, not worked.
bool takesClicks(const QWidget& widget) {
  if (!widget.isVisible() || !widget.isEnabled() || pieceOfAControl(widget) || readOnlyText(widget))
    return false;
  if (qobject_cast<const QHeaderView*>(&widget) || qobject_cast<const QScrollBar*>(&widget)) return false;
  return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
         qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractSpinBox*>(&widget) ||
         qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QTextEdit*>(&widget) ||
         qobject_cast<const QPlainTextEdit*>(&widget) || qobject_cast<const QAbstractSlider*>(&widget) ||
         qobject_cast<const QTabBar*>(&widget);
}

QList<QWidget*> clickable(const QWidget& window) {
  QList<QWidget*> found;
  for (QWidget* widget : window.findChildren<QWidget*>())
    if (widget->window() == &window && takesClicks(*widget)) found.append(widget);
  return found;
}

QWidget* focusOf(const QWidget& window) {
  QWidget* where = window.focusWidget();
  return where && where->hasFocus() ? where : nullptr;
}

/// The controls that one key goes through until it is back where it began.
struct Round {
  QList<QWidget*> met;
  QStringList blame;
};

Round goRound(QWidget& window, Qt::Key key) {
  Round round;
  // Not by the window's own word: a dialog calls itself active as soon as the window below is.
  if (!QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }))
    round.blame << nameOf(window) + QStringLiteral(" does not come to the front");
  QWidget* const first = focusOf(window);
  if (!first && !clickable(window).isEmpty()) round.blame << QStringLiteral("nothing has the focus");
  if (!first) return round;
  round.met.append(first);
  for (int step = 0; step < kMostTabs; ++step) {
    QTest::keyClick(focusOf(window), key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    QWidget* const now = focusOf(window);
    if (!now) {
      round.blame << QStringLiteral("the focus is lost behind ") + nameOf(*round.met.last());
      return round;
    }
    if (now == round.met.last()) continue;
    if (now == first) return round;
    if (round.met.contains(now)) {
      round.blame << nameOf(*now) + QStringLiteral(" comes round again before ") + nameOf(*first);
      return round;
    }
    round.met.append(now);
  }
  // A window with one control has nowhere else to go.
  if (round.met.size() > 1)
    round.blame << QStringLiteral("the key does not leave ") + nameOf(*round.met.last());
  return round;
}

bool excludesOthers(const QWidget& widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  if (!button || !button->isCheckable()) return false;
  return button->group() ? button->group()->exclusive() : button->autoExclusive();
}

/// The buttons that the arrows come to from `first`, which is picked again behind it.
QList<QWidget*> byArrows(QWidget& window, QWidget& first) {
  QList<QWidget*> met{&first};
  for (qsizetype i = 0; i < met.size(); ++i)
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Left}) {
      met[i]->setFocus(Qt::TabFocusReason);
      // One that an arrow has turned off meanwhile has no way on.
      if (!met[i]->hasFocus()) break;
      QTest::keyClick(met[i], key);
      QWidget* const now = focusOf(window);
      if (now && excludesOthers(*now) && !met.contains(now)) met.append(now);
    }
  first.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&first, Qt::Key_Space);
  return met;
}

QStringList namesOf(const QList<QWidget*>& widgets) {
  QStringList texts;
  for (const QWidget* widget : widgets) texts << nameOf(*widget);
  return texts;
}

/// What a control stands in together with others: its card, a row of commands, the window.
const QWidget* cardOf(const QWidget& widget) {
  const QWidget* above = widget.parentWidget();
  while (above && !above->isWindow() && !above->property("card").toBool() &&
         !above->inherits("FoldableRow") && !above->inherits("QAbstractScrollArea"))
    above = above->parentWidget();
  return above;
}

QRect placeOf(const QWidget& widget) {
  return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

/// Neither further down nor further to the right.
bool goesBack(const QRect& from, const QRect& to) {
  const bool lower = to.top() > from.bottom();
  const bool sameRow = !lower && to.bottom() >= from.top();
  return !lower && (sameRow ? to.left() < from.left() : to.left() <= from.right());
}

}  // namespace

QStringList byTab(QWidget& window) {
  QList<QWidget*> wanted = clickable(window);
  const Round there = goRound(window, Qt::Key_Tab);
  QStringList blame = there.blame;
  for (QWidget* met : there.met) {
    if (!met->isEnabled() || !met->isVisible())
      blame << nameOf(*met) + QStringLiteral(" has the focus and cannot be used");
    wanted.removeOne(met);
    if (!excludesOthers(*met)) continue;
    for (QWidget* other : byArrows(window, *met)) wanted.removeOne(other);
  }
  for (const QWidget* missing : wanted)
    blame << nameOf(*missing) + QStringLiteral(" is never reached by Tab");
  if (!blame.isEmpty() || there.met.isEmpty()) return blame;

  there.met.first()->setFocus(Qt::TabFocusReason);
  Round back = goRound(window, Qt::Key_Backtab);
  blame = back.blame;
  std::reverse(back.met.begin() + 1, back.met.end());
  if (back.met != there.met)
    blame << QStringLiteral("Shift+Tab goes another way: ") + namesOf(back.met).join(u' ') +
                 QStringLiteral(" in place of ") + namesOf(there.met).join(u' ');
  return blame;
}

QStringList order(QWidget& window) {
  const Round round = goRound(window, Qt::Key_Tab);
  QStringList blame = round.blame;
  QMap<const QWidget*, QList<QWidget*>> cards;
  QMap<const QWidget*, int> entered;
  for (qsizetype i = 0; i < round.met.size(); ++i) {
    const QWidget* card = cardOf(*round.met[i]);
    const QWidget* before = cardOf(*round.met[(i + round.met.size() - 1) % round.met.size()]);
    cards[card].append(round.met[i]);
    if (card != before && card != &window && ++entered[card] == 2)
      blame << QStringLiteral("Tab comes back into ") + nameOf(*card) + QStringLiteral(" at ") +
                   nameOf(*round.met[i]);
  }
  for (const QList<QWidget*>& ofCard : cards) {
    QStringList jumps;
    for (qsizetype i = 0; i < ofCard.size(); ++i) {
      const QWidget& from = *ofCard[i];
      const QWidget& to = *ofCard[(i + 1) % ofCard.size()];
      if (goesBack(placeOf(from), placeOf(to))) jumps << nameOf(from) + QStringLiteral(" to ") + nameOf(to);
    }
    // Once the way has to go back to the beginning.
    if (jumps.size() > 1) blame << QStringLiteral("Tab goes backwards: ") + jumps.join(QStringLiteral(", "));
  }
  return blame;
}

QStringList bySpace(QWidget& window) {
  QStringList blame;
  for (QWidget* met : goRound(window, Qt::Key_Tab).met) {
    auto* const button = qobject_cast<QAbstractButton*>(met);
    if (!button) continue;
    button->setFocus(Qt::TabFocusReason);
    QTest::keyPress(button, Qt::Key_Space);
    if (!button->isDown()) blame << nameOf(*button) + QStringLiteral(" is not pressed by Space");
    // Let go without starting what it is there for.
    button->setDown(false);
    QTest::keyRelease(button, Qt::Key_Space);
  }
  return blame;
}

QStringList byMenus(QWidget& window) {
  QStringList blame;
  auto* const bar = window.findChild<QMenuBar*>();
  if (!bar) return blame;
  for (const QAction* top : bar->actions()) {
    QMenu* const menu = top->menu();
    const QKeySequence letter = QKeySequence::mnemonic(top->text());
    if (!menu || letter.isEmpty()) {
      blame << top->objectName() + QStringLiteral(" has no letter in ") + top->text();
      continue;
    }
    QTest::keyClick(&window, letter[0].key(), Qt::AltModifier);
    if (!menu->isVisible()) {
      blame << menu->objectName() + QStringLiteral(" is not opened by ") + letter.toString();
      continue;
    }
    QSet<QAction*> met{menu->activeAction()};
    for (qsizetype i = 0; i <= menu->actions().size(); ++i) {
      QTest::keyClick(menu, Qt::Key_Down);
      met.insert(menu->activeAction());
    }
    for (QAction* entry : menu->actions())
      if (entry->isEnabled() && entry->isVisible() && !entry->isSeparator() && !met.contains(entry))
        blame << entry->objectName() + QStringLiteral(" is not come to by the arrows");
    QTest::keyClick(menu, Qt::Key_Escape);
    if (bar->hasFocus()) QTest::keyClick(bar, Qt::Key_Escape);
  }
  return blame;
}

namespace {

QString elementName(const QAccessibleInterface& element) {
  const QObject* object = element.object();
  const QString name = object ? object->objectName() : QString();
  return QStringLiteral("%1 [role %2]")
      .arg(name.isEmpty() ? QStringLiteral("(no name)") : name)
      .arg(static_cast<int>(element.role()));
}

bool worked(QAccessible::Role role) {
  switch (static_cast<int>(role)) {
    case QAccessible::PushButton:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::ProgressBar:
    case QAccessible::MenuItem:
    case QAccessible::ButtonMenu:
    case QAccessible::PageTab:
    case QAccessible::Table:
    case QAccessible::Tree:
    case QAccessible::List:
    case QAccessible::Link:
    case QAccessible::Window:
    case QAccessible::Dialog:
      return true;
    default:  // of the toolkit's roles, all that only group or show
      return false;
  }
}

bool isField(const QWidget& widget) {
  return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
         qobject_cast<const QAbstractSpinBox*>(&widget) || qobject_cast<const QTextEdit*>(&widget) ||
         qobject_cast<const QPlainTextEdit*>(&widget);
}

bool labelled(const QWidget& window, const QWidget& field) {
  const QList<QLabel*> labels = window.findChildren<QLabel*>();
  return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
    return label->buddy() == &field && !label->text().trimmed().isEmpty();
  });
}

void judgeName(const QAccessibleInterface& element, QStringList& blame) {
  static const QRegularExpression doubled(QStringLiteral("\\s\\s"));
  static const QRegularExpression letter(QStringLiteral("[\\p{L}\\p{N}]"));
  const QString name = element.text(QAccessible::Name);
  const bool needed = element.state().focusable || worked(element.role());
  if (name.trimmed().isEmpty()) {
    if (needed) blame << elementName(element) + QStringLiteral(" has no name");
    return;
  }
  if (name.contains(doubled))
    blame << elementName(element) + QStringLiteral(" is called with doubled blanks: ") + name;
  // Of a list the toolkit tells the chosen entry, whatever the name is; a drive is called "/".
  if (!name.contains(letter) && element.role() != QAccessible::ComboBox)
    blame << elementName(element) + QStringLiteral(" is called without a letter: ") + name;
}

void judgeHeadings(QAccessibleInterface& table, QStringList& blame) {
  const auto* view = qobject_cast<const QAbstractItemView*>(table.object());
  if (!view || !view->model()) return;
  for (int column = 0; column < view->model()->columnCount(); ++column)
    if (table.tableInterface()->columnDescription(column).trimmed().isEmpty())
      blame << elementName(table) + QStringLiteral(" has no heading over column %1").arg(column);
}

void readTree(QAccessibleInterface& element, QStringList& blame) {
  if (element.state().invisible) return;
  judgeName(element, blame);
  // Cells are texts of the shop's own, and some are empty.
  if (element.tableInterface()) return judgeHeadings(element, blame);
  for (int i = 0; i < element.childCount(); ++i)
    if (QAccessibleInterface* child = element.child(i); child && child->isValid()) readTree(*child, blame);
}

}  // namespace

QStringList names(QWidget& window) {
  QStringList blame;
  QAccessibleInterface* const root = QAccessible::queryAccessibleInterface(&window);
  if (!root) return {nameOf(window) + QStringLiteral(" is not in the tree")};
  readTree(*root, blame);
  for (const QWidget* field : window.findChildren<QWidget*>())
    if (isField(*field) && field->isVisible() && !pieceOfAControl(*field) &&
        field->accessibleName().isEmpty() && !labelled(window, *field))
      blame << nameOf(*field) + QStringLiteral(" has no label tied to it");
  return blame;
}

}  // namespace walk
