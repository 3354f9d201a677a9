#pragma once

#include <QTableView>

/// The leading columns of a grid that stand still while the others scroll sideways: a second view of the same
/// cells, kept on the grid's rows, in the place that the grid leaves free for it. It takes no focus and no
/// current cell.
class ColonneFisse : public QTableView {
  Q_OBJECT

 public:
  explicit ColonneFisse(QTableView& griglia);

  /// Shows the first `quante` columns, as wide as `larghezze` (pixels, 0 hides) has them.
  void mostra(int quante, const QList<int>& larghezze);
  /// Width of all that is shown.
  int larghezza() const;
  /// Takes its place within the grid.
  void disponi();

 Q_SIGNALS:
  void premuta(const QModelIndex& cella);

 protected:
  void mousePressEvent(QMouseEvent* evento) override;
  void mouseMoveEvent(QMouseEvent* evento) override;
  void mouseReleaseEvent(QMouseEvent* evento) override;
  void mouseDoubleClickEvent(QMouseEvent* evento) override;

 private:
  /// Scrolls to where the grid is.
  void segui();

  QTableView& griglia_;
  bool segue_ = false;
};
