#pragma once

#include <QTableView>

/// The leading columns of a grid that stand still while the others scroll sideways: a second view of the same
/// cells, kept on the grid's rows, in the place that the grid leaves free for it. It takes no focus, and no
/// current cell by the mouse; a double click is told by `doubleClicked`.
class FixedColumns : public QTableView {
  Q_OBJECT

 public:
  explicit FixedColumns(QTableView& grid);

  /// Shows the first `count` columns, as wide as `widths` (pixels, 0 hides) has them.
  void showColumns(int count, const QList<int>& widths);
  /// Width of all that is shown.
  int shownWidth() const;
  /// Takes its place within the grid.
  void arrange();

 Q_SIGNALS:
  void cellPressed(const QModelIndex& cell);
  /// The menu of the row at this place of the screen.
  void menuAsked(const QPoint& at);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  /// Scrolls to where the grid is.
  void follow();

  QTableView& grid_;
  bool following_ = false;
  /// The release that ends a double click is no second press.
  bool doubled_ = false;
};
