#include "controls/scritta_breve.h"

#include <QPainter>

namespace {
/// What can be told at the least, in characters of middling width.
constexpr int kCaratteriMinimi = 12;
}  // namespace

ScrittaBreve::ScrittaBreve(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
}

QSize ScrittaBreve::minimumSizeHint() const {
  const int larghezza = kCaratteriMinimi * fontMetrics().averageCharWidth();
  return {std::min(larghezza, QLabel::sizeHint().width()), QLabel::sizeHint().height()};
}

void ScrittaBreve::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  const QString breve = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
  pittore.setPen(palette().color(foregroundRole()));
  pittore.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine, breve);
}
