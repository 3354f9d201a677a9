#include "system/screen_look.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStatusBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "controls/card.h"
#include "controls/contrast.h"
#include "controls/elided_label.h"

namespace look {

namespace {

QString nameOf(const QWidget& widget) {
  const QString name = widget.objectName().isEmpty() ? QStringLiteral("(no name)") : widget.objectName();
  return name + QStringLiteral(" [") + QLatin1String(widget.metaObject()->className()) + u']';
}

/// What is seen of a kind in the window itself, not in a menu or a list over it.
template <typename Kind>
QList<Kind*> seen(const QWidget& window) {
  QList<Kind*> found;
  for (Kind* one : window.findChildren<Kind*>())
    if (one->isVisible() && one->window() == &window) found.append(one);
  return found;
}

// Letters and keys.

/// Who answers to a key.
using Owners = QMap<QString, QStringList>;

void note(Owners& owners, const QKeySequence& key, const QString& who) {
  if (!key.isEmpty()) owners[key.toString()].append(who);
}

void noteEntries(Owners& owners, const QWidget& window) {
  for (const QAction* action : window.findChildren<QAction*>())
    for (const QKeySequence& key : action->shortcuts()) note(owners, key, action->objectName());
  for (const QMenuBar* bar : seen<QMenuBar>(window))
    for (const QAction* top : bar->actions())
      if (top->isVisible()) note(owners, QKeySequence::mnemonic(top->text()), top->text());
}

void noteControls(Owners& owners, const QWidget& window) {
  // What is off answers once it is on.
  for (const QAbstractButton* button : seen<QAbstractButton>(window))
    note(owners, QKeySequence::mnemonic(button->text()), nameOf(*button));
  for (const QLabel* label : seen<QLabel>(window))
    if (label->buddy()) note(owners, QKeySequence::mnemonic(label->text()), nameOf(*label));
  for (const QTabBar* tabs : seen<QTabBar>(window))
    for (int i = 0; i < tabs->count(); ++i)
      note(owners, QKeySequence::mnemonic(tabs->tabText(i)), tabs->tabText(i));
  for (const QShortcut* shortcut : window.findChildren<QShortcut*>())
    if (shortcut->isEnabled() && shortcut->context() == Qt::WindowShortcut)
      note(owners, shortcut->key(), QStringLiteral("a key of ") + shortcut->parent()->objectName());
}

// Room for texts.

int widthOf(const QWidget& widget, const QString& text) {
  int widest = 0;
  for (const QString& line : text.split(u'\n'))
    widest = std::max(widest, widget.fontMetrics().size(Qt::TextShowMnemonic, line).width());
  return widest;
}

QString needs(const QWidget& widget, int needed, int there, const QString& text) {
  return nameOf(widget) +
         QStringLiteral(" has %1 of %2 for: %3").arg(there).arg(needed).arg(text.simplified());
}

void ofLabels(QStringList& blame, const QWidget& window) {
  for (const QLabel* label : seen<QLabel>(window)) {
    // One that gives up its middle says it all in its tooltip.
    if (label->text().isEmpty() || qobject_cast<const ElidedLabel*>(label)) continue;
    if (label->wordWrap()) {
      if (const int needed = label->heightForWidth(label->width()); needed > label->height())
        blame << needs(*label, needed, label->height(), label->text());
    } else if (label->sizeHint().width() > label->width()) {
      blame << needs(*label, label->sizeHint().width(), label->width(), label->text());
    } else if (label->sizeHint().height() > label->height()) {
      blame << needs(*label, label->sizeHint().height(), label->height(), label->text());
    }
  }
}

void ofButtons(QStringList& blame, const QWidget& window) {
  for (const QAbstractButton* button : seen<QAbstractButton>(window)) {
    if (button->text().isEmpty()) continue;
    // A card lays its texts out in the room that it has.
    const QSize needed = qobject_cast<const Card*>(button) ? button->minimumSizeHint() : button->sizeHint();
    if (needed.width() > button->width())
      blame << needs(*button, needed.width(), button->width(), button->text());
    if (needed.height() > button->height())
      blame << needs(*button, needed.height(), button->height(), button->text());
  }
}

void ofBoxes(QStringList& blame, const QWidget& window) {
  for (const QComboBox* list : seen<QComboBox>(window)) {
    // Entries of any length, such as the places of drives.
    if (list->sizeAdjustPolicy() == QComboBox::AdjustToMinimumContentsLengthWithIcon) continue;
    QStyleOptionComboBox options;
    options.initFrom(list);
    const int there = list->style()
                          ->subControlRect(QStyle::CC_ComboBox, &options, QStyle::SC_ComboBoxEditField, list)
                          .width();
    for (int i = 0; i < list->count(); ++i)
      if (const int needed = widthOf(*list, list->itemText(i)); needed > there)
        blame << needs(*list, needed, there, list->itemText(i));
  }
  for (const QLineEdit* box : seen<QLineEdit>(window)) {
    if (!box->isReadOnly() || !box->toolTip().isEmpty()) continue;
    QStyleOptionFrame options;
    options.initFrom(box);
    const int there = box->style()->subElementRect(QStyle::SE_LineEditContents, &options, box).width();
    if (const int needed = widthOf(*box, box->text()); needed > there)
      blame << needs(*box, needed, there, box->text());
  }
  for (const QProgressBar* bar : seen<QProgressBar>(window))
    if (bar->isTextVisible() && widthOf(*bar, bar->text()) > bar->width())
      blame << needs(*bar, widthOf(*bar, bar->text()), bar->width(), bar->text());
}

void ofTabs(QStringList& blame, const QWidget& window) {
  for (const QTabBar* tabs : seen<QTabBar>(window)) {
    if (tabs->sizeHint().width() > tabs->width())
      blame << needs(*tabs, tabs->sizeHint().width(), tabs->width(), QStringLiteral("all tabs"));
    for (int i = 0; i < tabs->count(); ++i)
      if (const int needed = widthOf(*tabs, tabs->tabText(i)); needed > tabs->tabRect(i).width())
        blame << needs(*tabs, needed, tabs->tabRect(i).width(), tabs->tabText(i));
  }
}

void ofHeadings(QStringList& blame, const QWidget& window) {
  for (const QTableView* grid : seen<QTableView>(window)) {
    const QHeaderView& heading = *grid->horizontalHeader();
    if (!heading.isVisible()) continue;
    for (int column = 0; column < heading.count(); ++column) {
      const QString text = grid->model()->headerData(column, Qt::Horizontal).toString();
      // They break between words.
      for (const QString& word : text.split(u' ', Qt::SkipEmptyParts))
        if (const int needed = widthOf(heading, word);
            !heading.isSectionHidden(column) && needed > heading.sectionSize(column))
          blame << needs(*grid, needed, heading.sectionSize(column), text);
    }
  }
}

// Places.

/// Something of the toolkit's own inside a control.
bool piece(const QWidget& widget) {
  for (const QWidget* above = widget.parentWidget(); above && !above->isWindow();
       above = above->parentWidget())
    if (qobject_cast<const QComboBox*>(above) || qobject_cast<const QLineEdit*>(above) ||
        qobject_cast<const QTabBar*>(above) || qobject_cast<const QAbstractItemView*>(above) ||
        qobject_cast<const QMenuBar*>(above) || qobject_cast<const QToolBar*>(above) ||
        qobject_cast<const QStatusBar*>(above) || qobject_cast<const QAbstractSpinBox*>(above) ||
        above->inherits("QTextEdit") || above->inherits("QPlainTextEdit") || above->inherits("QTextBrowser"))
      return true;
  return false;
}

QRect placeOf(const QWidget& widget) {
  return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

/// Where a control can be seen: up and down a body scrolls.
QRect roomOf(const QWidget& widget) {
  QRect room = widget.window()->rect();
  for (const QWidget* above = widget.parentWidget(); above && !above->isWindow();
       above = above->parentWidget())
    if (const auto* area = qobject_cast<const QScrollArea*>(above)) {
      const QRect view = placeOf(*area->viewport());
      room = QRect(view.left(), -QWIDGETSIZE_MAX / 2, view.width(), QWIDGETSIZE_MAX);
    }
  return room;
}

bool control(const QWidget& widget) {
  return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
         qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QLabel*>(&widget) ||
         qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QProgressBar*>(&widget) ||
         qobject_cast<const QTabBar*>(&widget) || widget.inherits("QPlainTextEdit");
}

QList<QWidget*> controls(const QWidget& window) {
  QList<QWidget*> found;
  for (QWidget* one : seen<QWidget>(window))
    if (control(*one) && !piece(*one)) found.append(one);
  return found;
}

// What is painted.

/// Where a control's text stands, without its border, indicator or icon.
QRect textPlace(const QWidget& widget) {
  constexpr int kBorder = 4;
  constexpr int kSign = 26;
  constexpr int kIconAndMargin = 40;
  QRect place = widget.rect();
  if (qobject_cast<const QLabel*>(&widget)) return place;
  place.adjust(kBorder, kBorder, -kBorder, -kBorder);
  if (qobject_cast<const QComboBox*>(&widget)) place.setRight(place.right() - kSign);
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  if (qobject_cast<const QRadioButton*>(button)) place.setLeft(kSign);
  if (button && !button->icon().isNull() && !qobject_cast<const Card*>(button)) place.setLeft(kIconAndMargin);
  return place;
}

QString textOf(const QWidget& widget) {
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) return list->currentText();
  return widget.property("text").toString().trimmed();
}

/// The best that any point stands out from the colour that most points have.
double bestContrast(const QImage& picture, const QRect& place) {
  QHash<QRgb, int> points;
  for (int y = place.top(); y <= place.bottom(); ++y)
    for (int x = place.left(); x <= place.right(); ++x) ++points[picture.pixel(x, y)];
  QRgb ground = 0;
  for (auto colour = points.cbegin(); colour != points.cend(); ++colour)
    if (colour.value() > points.value(ground)) ground = colour.key();
  double best = 0;
  for (auto colour = points.cbegin(); colour != points.cend(); ++colour)
    best = std::max(best, contrast::between(QColor(colour.key()), QColor(ground)));
  return best;
}

}  // namespace

QStringList keys(QWidget& window) {
  Owners owners;
  noteEntries(owners, window);
  noteControls(owners, window);
  QStringList blame;
  for (auto key = owners.cbegin(); key != owners.cend(); ++key)
    if (key.value().size() > 1)
      blame << key.key() + QStringLiteral(" stands for ") + key.value().join(QStringLiteral(" and "));
  return blame;
}

QStringList texts(QWidget& window) {
  QStringList blame;
  ofLabels(blame, window);
  ofButtons(blame, window);
  ofBoxes(blame, window);
  ofTabs(blame, window);
  ofHeadings(blame, window);
  return blame;
}

QStringList places(QWidget& window) {
  QStringList blame;
  const QList<QWidget*> all = controls(window);
  for (const QWidget* one : all) {
    if (!roomOf(*one).contains(placeOf(*one)))
      blame << nameOf(*one) + QStringLiteral(" reaches out of its place");
    for (const QWidget* other : all)
      if (one < other && one->parentWidget() == other->parentWidget() &&
          one->geometry().intersects(other->geometry()))
        blame << nameOf(*one) + QStringLiteral(" lies over ") + nameOf(*other);
  }
  return blame;
}

QStringList margins(QWidget& window) {
  // The toolkit lays its boxes out by itself.
  if (qobject_cast<const QMessageBox*>(&window)) return {};
  QRect filled;
  for (const QWidget* one : seen<QWidget>(window))
    if ((control(*one) || one->property("card").toBool() || one->inherits("QTextEdit") ||
         one->inherits("PictureFrame")) &&
        !piece(*one))
      filled |= placeOf(*one);
  constexpr int kMargin = 20;
  QStringList blame;
  if (filled.left() != kMargin) blame << QStringLiteral("%1 at the left").arg(filled.left());
  if (const int right = window.width() - 1 - filled.right(); right != kMargin)
    blame << QStringLiteral("%1 at the right").arg(right);
  return blame;
}

QStringList heights(QWidget& window) {
  QMap<int, QStringList> byHeight;
  for (const QWidget* one : controls(window)) {
    const auto* button = qobject_cast<const QPushButton*>(one);
    const bool typed = qobject_cast<const QLineEdit*>(one) || qobject_cast<const QComboBox*>(one);
    if (typed || (button && !qobject_cast<const Card*>(one))) byHeight[one->height()].append(nameOf(*one));
  }
  if (byHeight.size() < 2) return {};
  QStringList blame;
  for (auto height = byHeight.cbegin(); height != byHeight.cend(); ++height)
    blame << QStringLiteral("%1: ").arg(height.key()) + height.value().join(u' ');
  return blame;
}

QStringList contrasts(QWidget& window) {
  const QImage picture = window.grab().toImage();
  QStringList blame;
  for (const QWidget* one : controls(window)) {
    // What a body has scrolled away is looked at where it stands in front.
    if (!one->isEnabled() || textOf(*one).isEmpty() || one->visibleRegion().boundingRect() != one->rect())
      continue;
    const QRect place = textPlace(*one).translated(one->mapTo(&window, QPoint()));
    if (const double best = bestContrast(picture, place & picture.rect()); best < contrast::kReadable)
      blame << nameOf(*one) + QStringLiteral(" has %1 for: ").arg(best, 0, 'f', 1) + textOf(*one);
  }
  return blame;
}

QStringList reasons(QWidget& window) {
  QStringList blame;
  for (const QAbstractButton* button : seen<QAbstractButton>(window)) {
    // An option that is off shows by the one above it what turns it on.
    const bool command = qobject_cast<const QPushButton*>(button) || qobject_cast<const QToolButton*>(button);
    const bool own = !qobject_cast<const QLineEdit*>(button->parentWidget());
    if (!button->isEnabled() && command && own &&
        (button->toolTip().isEmpty() || button->toolTip() == button->text()))
      blame << nameOf(*button) + QStringLiteral(" does not say why it is off");
  }
  return blame;
}

}  // namespace look
