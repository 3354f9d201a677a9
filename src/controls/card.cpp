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

/// Average letters of a caption that never takes a second line.
constexpr int kOneLine = 26;

/// Width of a caption, a long one in two lines parted where they come out alike.
int captionWidth(const QFontMetrics& metrics, const QString& text) {
  int width = metrics.horizontalAdvance(text);
  if (width <= kOneLine * metrics.averageCharWidth()) return width;
  for (qsizetype at = text.indexOf(u' '); at >= 0; at = text.indexOf(u' ', at + 1))
    width = std::min(width, std::max(metrics.horizontalAdvance(text.left(at)),
                                     metrics.horizontalAdvance(text.mid(at + 1))));
  return width;
}

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
  return height() < std::max(kFlatHeight, tallHeight());
}

QFont Card::titleFormat(double zoom) const {
  QFont character = font();
  character.setWeight(QFont::DemiBold);
  character.setPointSizeF(character.pointSizeF() * zoom);
  return character;
}

int Card::tallTitleHeight() const {
  const QRect room(0, 0, width() - 2 * kMargin, 0);
  return QFontMetrics(titleFormat(kZoom))
      .boundingRect(room, Qt::AlignHCenter | Qt::TextWordWrap, text())
      .height();
}

int Card::tallHeight() const {
  return kDisc + kSpace + tallTitleHeight() + kTitleSpace + fontMetrics().height();
}

QSize Card::sizeHint() const {
  return kSize.expandedTo(minimumSizeHint());
}

QSize Card::minimumSizeHint() const {
  const int width = captionWidth(QFontMetrics(titleFormat(1)), text());
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
  painter.setFont(titleFormat(1));
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.drawText(rect().adjusted(disc.right() + kSpace, 0, -kMargin, 0),
                   Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap, text());
}

void Card::drawTall(QPainter& painter) {
  const int title = tallTitleHeight();
  const int known = fontMetrics().height();
  int y = (height() - tallHeight()) / 2;
  drawDisc(painter, QRect((width() - kDisc) / 2, y, kDisc, kDisc));
  y += kDisc + kSpace;
  painter.setFont(titleFormat(kZoom));
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.drawText(QRect(kMargin, y, width() - 2 * kMargin, title), Qt::AlignCenter | Qt::TextWordWrap,
                   text());
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
