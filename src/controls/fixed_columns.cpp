#include "controls/fixed_columns.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <utility>

#include "controls/heading_view.h"

FixedColumns::FixedColumns(QTableView& grid) : QTableView(&grid), grid_(grid) {
  setObjectName(QStringLiteral("colonneFisse"));
  setAccessibleName(QStringLiteral("Colonne fisse"));
  setHorizontalHeader(new HeadingView(this));
  setModel(grid.model());
  setItemDelegate(grid.itemDelegate());
  QItemSelectionModel* mine = selectionModel();
  setSelectionModel(grid.selectionModel());
  delete mine;
  setFocusPolicy(Qt::NoFocus);
  setStyleSheet(QStringLiteral("QTableView { border: none; }"));
  setFrameShape(QFrame::NoFrame);
  setWordWrap(false);
  setAutoScroll(false);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->hide();
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setMinimumSectionSize(1);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
    if (!following_) grid_.verticalScrollBar()->setValue(value);
  });
  connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &FixedColumns::follow);
  connect(grid.verticalScrollBar(), &QScrollBar::valueChanged, this, &FixedColumns::follow);
  hide();
}

void FixedColumns::follow() {
  // A range of its own that is still behind cuts the value: that is no scrolling by hand.
  const QScopedValueRollback notByItself(following_, true);
  verticalScrollBar()->setValue(grid_.verticalScrollBar()->value());
}

void FixedColumns::showColumns(int count, const QList<int>& widths) {
  for (int column = 0; column < widths.size(); ++column) {
    const bool mine = column < count && widths[column] > 0;
    setColumnHidden(column, !mine);
    if (mine) setColumnWidth(column, widths[column]);
  }
  setVisible(shownWidth() > 0);
  arrange();
}

int FixedColumns::shownWidth() const {
  return horizontalHeader()->length();
}

void FixedColumns::arrange() {
  const QRect heading = grid_.horizontalHeader()->geometry();
  const QRect cells = grid_.viewport()->geometry();
  verticalHeader()->setMinimumSectionSize(grid_.verticalHeader()->minimumSectionSize());
  verticalHeader()->setDefaultSectionSize(grid_.verticalHeader()->defaultSectionSize());
  horizontalHeader()->setFixedHeight(heading.height());
  setGeometry(cells.left() - shownWidth(), heading.top(), shownWidth(), heading.height() + cells.height());
  follow();
}

void FixedColumns::mousePressEvent(QMouseEvent* event) {
  event->accept();
}

void FixedColumns::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
}

void FixedColumns::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();
  const QModelIndex cell = indexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !cell.isValid()) return;
  doubled_ = true;
  Q_EMIT doubleClicked(cell);
}

void FixedColumns::mouseReleaseEvent(QMouseEvent* event) {
  if (std::exchange(doubled_, false)) return;
  const QModelIndex cell = indexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && cell.isValid()) Q_EMIT cellPressed(cell);
}

void FixedColumns::contextMenuEvent(QContextMenuEvent* event) {
  Q_EMIT menuAsked(event->globalPos());
}
