#include "controls/menu_entry.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

namespace {

// Pixels at scale 1.
constexpr int kIcon = 24;
constexpr int kMargin = 14;
constexpr int kHeight = 54;
constexpr int kMinHeight = 32;
constexpr int kSlash = 4;
constexpr int kCorner = 8;

/// Of the letters of a screen.
constexpr qreal kCaption = 4.0 / 3;

/// Some captions begin with a blank; on the screen all of them stand on one line.
QString readable(const QString& text) {
  return text.trimmed();
}

}  // namespace

MenuEntry::MenuEntry(QWidget* parent) : QAbstractButton(parent) {
  setMouseTracking(true);
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  setIconSize({kIcon, kIcon});
  QFont letters = font();
  letters.setPointSizeF(letters.pointSizeF() * kCaption);
  setFont(letters);
}

void MenuEntry::setLook(int look) {
  if (look_ == look) return;
  look_ = look;
  update();
}

int MenuEntry::minWidth() const {
  return fontMetrics().horizontalAdvance(readable(text())) + iconSize().width() + 3 * kMargin + kSlash;
}

QSize MenuEntry::sizeHint() const {
  return {minWidth() + 2 * kMargin, std::max(kHeight, fontMetrics().height() + 2 * kSlash)};
}

QSize MenuEntry::minimumSizeHint() const {
  return {minWidth(), std::max(kMinHeight, fontMetrics().height() + kSlash)};
}

void MenuEntry::mouseMoveEvent(QMouseEvent* event) {
  QAbstractButton::mouseMoveEvent(event);
  Q_EMIT hovered();
}

void MenuEntry::focusInEvent(QFocusEvent* event) {
  QAbstractButton::focusInEvent(event);
  update();
  // A window or a box that comes to the front gives the focus back: nobody moved to this entry then.
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) Q_EMIT reached();
}

void MenuEntry::focusOutEvent(QFocusEvent* event) {
  QAbstractButton::focusOutEvent(event);
  update();
}

void MenuEntry::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Held down since the screen before, it would open entry after entry.
  if (enter && !event->isAutoRepeat())
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

void MenuEntry::paintEvent(QPaintEvent* /*evento*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
  if (look_ != 0) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().midlight());
    painter.drawRoundedRect(area, kCorner, kCorner);
    painter.setBrush(palette().highlight());
    const double high = area.height() / 2;
    painter.drawRoundedRect(QRectF(area.left() + 3, area.center().y() - high / 2, kSlash, high), 2, 2);
  }
  if (hasFocus()) {
    painter.setPen(QPen(palette().highlight(), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area, kCorner, kCorner);
  }
  const QRect place(kMargin + kSlash, (height() - iconSize().height()) / 2, iconSize().width(),
                    iconSize().height());
  icon().paint(&painter, place);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(rect().adjusted(place.right() + kMargin, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   readable(text()));
}
