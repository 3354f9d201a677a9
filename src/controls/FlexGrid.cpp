#include "controls/FlexGrid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <numeric>

#include "controls/cell_model.h"
#include "controls/fixed_columns.h"
#include "controls/heading_view.h"

namespace {

constexpr int kTwipsPerPixel = 15;
/// Of a column that was given no width.
constexpr int kColumnTwips = 1500;
/// Pixels above and below the text of a row.
constexpr int kPadding = 8;
constexpr int kHeadingPadding = 12;

int pixel(int twip, double zoom = 1) {
  return qRound(std::max(twip, 0) * zoom / kTwipsPerPixel);
}

/// A cell's text may not break the shape of the table that it is pasted into.
QString inOneCell(QString text) {
  for (QChar& c : text)
    if (c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r')) c = QLatin1Char(' ');
  return text;
}

}  // namespace

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent), model_(new CellModel(this)) {
  setAccessibleName(QStringLiteral("Griglia"));
  setHorizontalHeader(new HeadingView(this));
  setModel(model_);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->hide();
  fixedView_ = new FixedColumns(*this);
  connect(fixedView_, &FixedColumns::cellPressed, this, &FlexGrid::fixedPressed);
  connect(this, &QAbstractItemView::clicked, this,
          [this](const QModelIndex& cell) { Q_EMIT cellClicked(cell.row() + 1, cell.column()); });
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, &FlexGrid::resized);
  model_->setPalette(palette());
  // Narrow columns are laid down too.
  horizontalHeader()->setMinimumSectionSize(1);
  sizeRows();
}

FlexGrid::~FlexGrid() = default;

int FlexGrid::Rows() const {
  return model_->rows();
}

int FlexGrid::Cols() const {
  return model_->columns();
}

void FlexGrid::setRows(int rows) {
  if (Row() >= std::max(rows, 1)) selectionModel()->clear();
  model_->setRowCount(rows);
}

void FlexGrid::setCols(int columns) {
  if (Col() >= std::max(columns, 0)) selectionModel()->clear();
  model_->setColumnCount(columns);
  twip_.resize(Cols(), kColumnTwips);
  showColumns();
}

void FlexGrid::Clear() {
  model_->clear();
}

QString FlexGrid::TextMatrix(int row, int column) const {
  return model_->text(row, column);
}

void FlexGrid::setTextMatrix(int row, int column, const QString& text) {
  model_->setText(row, column, text);
}

QColor FlexGrid::CellBackColor(int row, int column) const {
  const CellModel::Look look = model_->look(row, column);
  return look.hasBack ? QColor::fromRgba(look.background) : QColor();
}

void FlexGrid::setCellBackColor(int row, int column, const QColor& colour) {
  CellModel::Look look = model_->look(row, column);
  look.hasBack = colour.isValid();
  look.background = colour.isValid() ? colour.rgba() : QRgb{};
  model_->setLook(row, column, look);
}

QColor FlexGrid::CellForeColor(int row, int column) const {
  const CellModel::Look look = model_->look(row, column);
  return look.hasFore ? QColor::fromRgba(look.text) : QColor();
}

void FlexGrid::setCellForeColor(int row, int column, const QColor& colour) {
  CellModel::Look look = model_->look(row, column);
  look.hasFore = colour.isValid();
  look.text = colour.isValid() ? colour.rgba() : QRgb{};
  model_->setLook(row, column, look);
}

Qt::Alignment FlexGrid::CellAlignment(int row, int column) const {
  return model_->alignment(row, column);
}

void FlexGrid::setCellAlignment(int row, int column, Qt::Alignment alignment) {
  CellModel::Look look = model_->look(row, column);
  look.alignment = static_cast<int>(alignment);
  model_->setLook(row, column, look);
}

void FlexGrid::setColAlignment(int column, Qt::Alignment alignment) {
  model_->setColumnAlignment(column, alignment);
}

void FlexGrid::setColWidth(int column, int twip) {
  if (column < 0 || column >= Cols()) return;
  twip_[column] = std::max(twip, 0);
  showColumns();
}

int FlexGrid::ColWidth(int column) const {
  return twip_.value(column);
}

void FlexGrid::resized(int column, int /*prima*/, int width) {
  if (!arranging_ && column < twip_.size()) twip_[column] = qRound(width * kTwipsPerPixel / zoom());
}

void FlexGrid::setHeadingHeight(int twip) {
  headingHeight_ = pixel(twip);
  sizeRows();
}

void FlexGrid::setFixedCols(int columns) {
  fixedCols_ = std::max(columns, 0);
  if (Col() >= 0 && Col() < FixedCols()) selectionModel()->clear();
  showColumns();
}

int FlexGrid::FixedCols() const {
  return std::min(fixedCols_, Cols());
}

void FlexGrid::showColumns() {
  const QScopedValueRollback notTheUser(arranging_, true);
  QList<int> widths;
  const double scale = zoom();
  for (const int twip : std::as_const(twip_)) widths.append(pixel(twip, scale));
  for (int column = 0; column < Cols(); ++column) {
    const bool visible = column >= FixedCols() && widths[column] > 0;
    setColumnHidden(column, !visible);
    if (visible) setColumnWidth(column, widths[column]);
  }
  fixedView_->showColumns(FixedCols(), widths);
  // The row headings keep the place that the fixed columns lie on.
  verticalHeader()->setFixedWidth(fixedView_->shownWidth());
  verticalHeader()->setVisible(fixedView_->shownWidth() > 0);
  updateGeometries();
}

void FlexGrid::setFullWidth(bool fullWidth) {
  fullWidth_ = fullWidth;
  showColumns();
}

double FlexGrid::zoom() const {
  const int sum = std::accumulate(twip_.begin(), twip_.end(), 0);
  if (!fullWidth_ || sum == 0) return 1;
  const int slash = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  // Half a pixel a column is what rounding may take.
  const double release = width() - 2 * frameWidth() - slash - Cols() / 2.0;
  return std::max(1.0, release * kTwipsPerPixel / sum);
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (fullWidth_) showColumns();
}

void FlexGrid::updateGeometries() {
  QTableView::updateGeometries();
  if (fixedView_ != nullptr) fixedView_->arrange();
}

void FlexGrid::sizeRows() {
  const int row = fontMetrics().height();
  verticalHeader()->setMinimumSectionSize(row + kPadding);
  verticalHeader()->setDefaultSectionSize(row + kPadding);
  horizontalHeader()->setFixedHeight(std::max(headingHeight_, row + kHeadingPadding));
  FlexGrid::updateGeometries();
}

void FlexGrid::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) sizeRows();
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
    model_->setPalette(palette());
}

void FlexGrid::setBackColor(const QColor& colour) {
  model_->setBackground(colour);
}

int FlexGrid::Row() const {
  return currentIndex().row() + 1;
}

int FlexGrid::Col() const {
  return currentIndex().column();
}

void FlexGrid::setCell(int row, int column) {
  const QModelIndex cell = model_->index(row - 1, column);
  if (!cell.isValid() || column < FixedCols()) return;
  setCurrentIndex(cell);
  scrollTo(cell);
}

void FlexGrid::markRow(int row) {
  if (row < 1 || row >= Rows() || FixedCols() >= Cols()) return;
  if (Row() != row) setCell(row, FixedCols());
  selectionModel()->select({model_->index(row - 1, 0), model_->index(row - 1, Cols() - 1)},
                           QItemSelectionModel::ClearAndSelect);
}

void FlexGrid::fixedPressed(const QModelIndex& cell) {
  setFocus(Qt::MouseFocusReason);
  setCell(cell.row() + 1, FixedCols());
  Q_EMIT cellClicked(cell.row() + 1, cell.column());
}

void FlexGrid::currentChanged(const QModelIndex& fresh, const QModelIndex& before) {
  QTableView::currentChanged(fresh, before);
  if (fresh.isValid()) Q_EMIT entered(fresh.row() + 1, fresh.column());
}

void FlexGrid::setRedraw(bool on) {
  const bool wasOn = Redraw();
  off_ = on ? std::max(off_ - 1, 0) : off_ + 1;
  if (Redraw() == wasOn) return;
  if (on)
    model_->resume();
  else
    model_->suspend();
  setUpdatesEnabled(on);
}

bool FlexGrid::Redraw() const {
  return off_ == 0;
}

QString FlexGrid::Clip() const {
  QStringList rows;
  for (const QItemSelectionRange& area : selectionModel()->selection())
    for (int row = area.top(); row <= area.bottom(); ++row) {
      QStringList cells;
      for (int column = area.left(); column <= area.right(); ++column)
        cells << inOneCell(TextMatrix(row + 1, column));
      rows << cells.join(QLatin1Char('\t'));
    }
  return rows.join(QLatin1Char('\n'));
}

void FlexGrid::copy() const {
  // With nothing selected the clipboard keeps what it holds.
  if (selectionModel()->hasSelection()) QGuiApplication::clipboard()->setText(Clip());
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return copy();
  const int key = event->key();
  const bool chooses = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
  if (!chooses || event->modifiers().testFlag(Qt::ControlModifier)) return QTableView::keyPressEvent(event);
  if (!event->isAutoRepeat() && Row() > 0) Q_EMIT cellClicked(Row(), Col());
}
