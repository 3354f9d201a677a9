#include "controls/cell_delegate.h"

#include <QPainter>

#include "controls/cell_model.h"

namespace {
constexpr int kLine = 2;
constexpr int kBar = 4;
}  // namespace

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  if (option.state.testFlag(QStyle::State_HasFocus)) {
    painter->save();
    painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight));
    painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    painter->restore();
  }
  if (!index.data(CellModel::kInFieldsRole).toBool()) return;
  const QColor ink = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight);
  const QRect& cell = option.rect;
  painter->fillRect(cell.left(), cell.top(), cell.width(), kLine, ink);
  painter->fillRect(cell.left(), cell.bottom() + 1 - kLine, cell.width(), kLine, ink);
  if (index.column() == 0) painter->fillRect(cell.left(), cell.top(), kBar, cell.height(), ink);
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  // Under a style sheet a cell with the pointer over it would lose its ground; the style's mark of the focus
  // is a wash over the text.
  option->state &= ~(QStyle::State_MouseOver | QStyle::State_HasFocus);
}
