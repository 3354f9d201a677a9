#include "controls/heading_view.h"

#include <QPainter>

namespace {
constexpr int kMargin = 8;
}

HeadingView::HeadingView(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setHighlightSections(false);
}

void HeadingView::paintSection(QPainter* painter, const QRect& place, int section) const {
  const auto ask = [&](int role) { return model()->headerData(section, Qt::Horizontal, role); };
  const QVariant ground = ask(Qt::BackgroundRole);
  if (!ground.isValid()) return QHeaderView::paintSection(painter, place, section);
  painter->save();
  painter->fillRect(place.adjusted(0, 0, -1, -1), ground.value<QColor>());
  if (const QVariant font = ask(Qt::FontRole); font.isValid())
    painter->setFont(font.value<QFont>().resolve(painter->font()));
  painter->setPen(ask(Qt::ForegroundRole).value<QColor>());
  painter->drawText(place.adjusted(kMargin, 0, -kMargin, 0), ask(Qt::TextAlignmentRole).toInt(),
                    ask(Qt::DisplayRole).toString());
  painter->restore();
}
