#include "controls/card.h"

#include <QGuiApplication>
#include <QPainter>
#include <QStyleOptionButton>
#include <algorithm>

namespace {

// Pixels at scale 1.
constexpr QSize kSize{300, 190};
constexpr int kFlatHeight = 150;
constexpr int kDisc = 72;
constexpr int kFlatDisc = 38;
constexpr int kFlatMargin = 6;
constexpr int kMargin = 12;
constexpr int kSpace = 10;
constexpr int kTitleSpace = 4;

constexpr double kZoom = 1.35;

}  // namespace

Card::Card(QWidget* parent) : QPushButton(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void Card::setHint(const QString& hint) {
  hint_ = hint;
  setToolTip(hint);
  setAccessibleDescription(hint);
  update();
}

bool Card::flat() const {
  return height() < kFlatHeight;
}

QFont Card::titleFormat() const {
  QFont character = font();
  character.setWeight(QFont::DemiBold);
  if (!flat()) character.setPointSizeF(character.pointSizeF() * kZoom);
  return character;
}

QSize Card::sizeHint() const {
  return kSize.expandedTo(minimumSizeHint());
}

QSize Card::minimumSizeHint() const {
  QFont character = font();
  character.setWeight(QFont::DemiBold);
  const int width = QFontMetrics(character).horizontalAdvance(text());
  return {width + kFlatDisc + kSpace + 2 * kMargin, kFlatDisc + kMargin};
}

void Card::drawGround(QPainter& painter) {
  QStyleOptionButton options;
  initStyleOption(&options);
  options.text.clear();
  options.icon = {};
  style()->drawControl(QStyle::CE_PushButton, &options, &painter, this);
}

void Card::drawDisc(QPainter& painter, const QRect& disc) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(isEnabled() ? palette().color(QPalette::Midlight)
                               : palette().color(QPalette::Disabled, QPalette::Highlight));
  painter.drawEllipse(disc);
  const int border = disc.width() / 4;
  icon().paint(&painter, disc.adjusted(border, border, -border, -border), Qt::AlignCenter,
               isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

void Card::drawFlat(QPainter& painter) {
  const int side = std::min(kFlatDisc, height() - kFlatMargin);
  const QRect disc(kMargin, (height() - side) / 2, side, side);
  drawDisc(painter, disc);
  painter.setFont(titleFormat());
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.drawText(rect().adjusted(disc.right() + kSpace, 0, -kMargin, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   text());
}

void Card::drawTall(QPainter& painter) {
  const int title = QFontMetrics(titleFormat()).height();
  const int known = fontMetrics().height();
  int y = (height() - kDisc - kSpace - title - kTitleSpace - known) / 2;
  drawDisc(painter, QRect((width() - kDisc) / 2, y, kDisc, kDisc));
  y += kDisc + kSpace;
  painter.setFont(titleFormat());
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.drawText(QRect(0, y, width(), title), Qt::AlignCenter, text());
  y += title + kTitleSpace;
  painter.setFont(font());
  // The style sheet has thinned the widget's own placeholder colour.
  painter.setPen(isEnabled() ? QGuiApplication::palette().color(QPalette::PlaceholderText)
                             : palette().color(QPalette::ButtonText));
  painter.drawText(QRect(kMargin, y, width() - 2 * kMargin, known), Qt::AlignCenter,
                   fontMetrics().elidedText(hint_, Qt::ElideRight, width() - 2 * kMargin));
}

void Card::paintEvent(QPaintEvent* /*evento*/) {
  QPainter painter(this);
  drawGround(painter);
  if (flat())
    drawFlat(painter);
  else
    drawTall(painter);
}
