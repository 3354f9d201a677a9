#include "controls/foldable_row.h"

#include <QBoxLayout>
#include <QEvent>
#include <algorithm>

namespace {

QBoxLayout* rowOf(const QWidget& frame) {
  return qobject_cast<QBoxLayout*>(frame.layout());
}

}  // namespace

bool FoldableRow::isFolded() const {
  const QBoxLayout* row = rowOf(*this);
  return row != nullptr && row->direction() == QBoxLayout::TopToBottom;
}

QSize FoldableRow::minimumSizeHint() const {
  const QBoxLayout* row = rowOf(*this);
  if (row == nullptr) return QFrame::minimumSizeHint();
  // Folded it needs no more than its wider part, and a window may always become as narrow as that.
  int width = 0;
  for (int i = 0; i < row->count(); ++i) width = std::max(width, row->itemAt(i)->minimumSize().width());
  const QMargins margins = row->contentsMargins();
  return {width + margins.left() + margins.right(), QFrame::minimumSizeHint().height()};
}

QSize FoldableRow::sizeHint() const {
  return QFrame::sizeHint().expandedTo(minimumSizeHint());
}

void FoldableRow::fold() {
  QBoxLayout* row = rowOf(*this);
  if (row == nullptr || row->count() < 2) return;
  const QMargins margins = row->contentsMargins();
  const int first =
      std::max(row->itemAt(0)->minimumSize().width(), characters_ * fontMetrics().averageCharWidth());
  const int needed =
      first + row->spacing() + row->itemAt(1)->minimumSize().width() + margins.left() + margins.right();
  const auto wanted = width() < needed ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
  if (row->direction() != wanted) row->setDirection(wanted);
}

void FoldableRow::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  fold();
}

void FoldableRow::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fold();
}

bool FoldableRow::event(QEvent* event) {
  // A part that came to need more or less room.
  if (event->type() == QEvent::LayoutRequest) fold();
  return QFrame::event(event);
}
