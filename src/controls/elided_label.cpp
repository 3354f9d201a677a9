#include "controls/elided_label.h"

#include <QPainter>

namespace {
/// What can be told at the least, in characters of middling width.
constexpr int kMinCharacters = 12;
}  // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const {
  const int width = kMinCharacters * fontMetrics().averageCharWidth();
  return {std::min(width, QLabel::sizeHint().width()), QLabel::sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*evento*/) {
  QPainter painter(this);
  const QString brief = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine, brief);
}
