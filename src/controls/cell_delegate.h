#pragma once

#include <QStyledItemDelegate>

/// Paints the cells of a grid on their grounds, under the pointer too. The current cell has a thin frame
/// while the grid has the focus; the row that stands in the screen's fields has a line above and below and a
/// bar in front, on whatever ground its cells have.
class CellDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
