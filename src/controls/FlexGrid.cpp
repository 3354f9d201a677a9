#include "controls/FlexGrid.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <numeric>

#include "controls/cell_delegate.h"
#include "controls/cell_model.h"
#include "controls/fixed_columns.h"
#include "controls/heading_view.h"

static_assert(FlexGrid::kGeneralAlignment == CellModel::kGeneral);

namespace {

/// Of a column that was given no width.
constexpr int kColumnTwips = 1500;
/// Pixels above and below the text of a row.
constexpr int kPadding = 8;
constexpr int kHeadingPadding = 12;
/// Pixels beside the text of a heading.
constexpr int kHeadingMargin = 18;
/// Pixels beside the text of a cell.
constexpr int kCellMargin = 8;

int pixel(int twip) {
  return qRound(std::max(twip, 0) / double(FlexGrid::kTwipsPerPixel));
}

/// What a tooltip shows as it stands, whatever signs are in it.
QString plainToolTip(const QString& text) {
  return QStringLiteral("<p style='white-space:pre'>") + text.toHtmlEscaped() + QStringLiteral("</p>");
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
  setItemDelegate(new CellDelegate(this));
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->hide();
  fixedView_ = new FixedColumns(*this);
  connect(fixedView_, &FixedColumns::cellPressed, this, &FlexGrid::fixedPressed);
  connect(fixedView_, &FixedColumns::menuAsked, this, qOverload<const QPoint&>(&FlexGrid::openMenu));
  connect(this, &QAbstractItemView::clicked, this,
          [this](const QModelIndex& cell) { Q_EMIT cellClicked(cell.row() + 1, cell.column()); });
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, &FlexGrid::resized);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &FlexGrid::scrolled);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &FlexGrid::scrolled);
  hearFixedCells();
  model_->setPalette(palette());
  // Narrow columns are laid down too.
  horizontalHeader()->setMinimumSectionSize(1);
  sizeRows();
}

FlexGrid::~FlexGrid() = default;

void FlexGrid::hearFixedCells() {
  const auto ofCell = [this](const QModelIndex& cell) {
    Q_EMIT cellDoubleClicked(cell.row() + 1, cell.column());
  };
  const auto ofHeading = [this](int column) { Q_EMIT cellDoubleClicked(0, column); };
  for (QTableView* view : {static_cast<QTableView*>(this), static_cast<QTableView*>(fixedView_)}) {
    connect(view, &QAbstractItemView::doubleClicked, this, ofCell);
    QHeaderView* heading = view->horizontalHeader();
    connect(heading, &QHeaderView::sectionDoubleClicked, this, ofHeading);
    // What a heading leaves of a right click goes no further than the view below it.
    heading->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(heading, &QWidget::customContextMenuRequested, this,
            [this, heading](const QPoint& at) { openMenu(heading->viewport()->mapToGlobal(at)); });
  }
}

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
  if (Col() >= std::max(columns, 0)) {
    selectionModel()->clear();
    headingCell_ = -1;
  }
  model_->setColumnCount(columns);
  columns_.resize(Cols(), {kColumnTwips, {}, false});
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

QFont FlexGrid::CellFont(int row, int column) const {
  const std::optional<QFont> its = model_->look(row, column).font;
  return its ? its->resolve(font()) : font();
}

void FlexGrid::setCellFont(int row, int column, const QFont& font) {
  CellModel::Look look = model_->look(row, column);
  look.font = font.resolveMask() != 0 ? std::optional(font) : std::nullopt;
  model_->setLook(row, column, look);
}

QColor FlexGrid::ShownBackColor(int row, int column) const {
  const QVariant its = model_->value(row, column, Qt::BackgroundRole);
  return its.isValid() ? its.value<QColor>() : palette().color(row == 0 ? QPalette::Window : QPalette::Base);
}

QColor FlexGrid::ShownForeColor(int row, int column) const {
  const QVariant its = model_->value(row, column, Qt::ForegroundRole);
  return its.isValid() ? its.value<QColor>() : palette().color(QPalette::Text);
}

void FlexGrid::setColAlignment(int column, Qt::Alignment alignment) {
  model_->setColumnAlignment(column, alignment);
}

void FlexGrid::setColWidth(int column, int twip) {
  if (column < 0 || column >= Cols()) return;
  columns_[column].twip = std::max(twip, 0);
  columns_[column].byHand = false;
  showColumns();
}

int FlexGrid::ColWidth(int column) const {
  return columns_.value(column).twip;
}

bool FlexGrid::isSizedByHand(int column) const {
  return columns_.value(column).byHand;
}

void FlexGrid::setColSample(int column, const QString& text) {
  if (column < 0 || column >= Cols()) return;
  columns_[column].sample = text;
  showColumns();
}

void FlexGrid::fitColumnsTo(int row) {
  for (int column = 0; column < Cols(); ++column) {
    QString& sample = columns_[column].sample;
    const QString text = TextMatrix(row, column);
    const bool longer = fontMetrics().horizontalAdvance(text) > fontMetrics().horizontalAdvance(sample);
    if (!sample.isEmpty() && column != spare_ && longer) sample = text;
  }
  showColumns();
}

void FlexGrid::setSpareColumn(int column) {
  spare_ = column;
  showColumns();
}

void FlexGrid::setHeadingToolTip(int column, const QString& text) {
  model_->setHeadingToolTip(column, text);
}

void FlexGrid::resized(int column, int /*before*/, int width) {
  if (arranging_ || column >= columns_.size()) return;
  columns_[column].twip = width * kTwipsPerPixel;
  columns_[column].byHand = true;
  showColumns();
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

bool FlexGrid::isFixedCell(int row, int column) const {
  return row == 0 || column < FixedCols();
}

QRect FlexGrid::CellRect(int row, int column) const {
  if (row < 0 || row >= Rows() || column < 0 || column >= Cols()) return {};
  const QTableView* columns = column < FixedCols() ? static_cast<const QTableView*>(fixedView_) : this;
  const QPoint left(columns->columnViewportPosition(column), 0);
  const QHeaderView& heading = *horizontalHeader();
  const int top = row == 0 ? heading.y() : viewport()->y() + rowViewportPosition(row - 1);
  return {columns->viewport()->mapTo(this, left).x(), top, columns->columnWidth(column),
          row == 0 ? heading.height() : rowHeight(row - 1)};
}

void FlexGrid::showColumns() {
  columnsWait_ = !Redraw();
  if (columnsWait_) return;
  const QScopedValueRollback notTheUser(arranging_, true);
  const QList<int> shown = widths();
  for (int column = 0; column < Cols(); ++column) {
    const bool visible = column >= FixedCols() && shown[column] > 0;
    setColumnHidden(column, !visible);
    if (visible) setColumnWidth(column, shown[column]);
  }
  fixedView_->showColumns(FixedCols(), shown);
  horizontalHeader()->setFixedHeight(headingHeight());
  // The row headings keep the place that the fixed columns lie on.
  verticalHeader()->setFixedWidth(fixedView_->shownWidth());
  verticalHeader()->setVisible(fixedView_->shownWidth() > 0);
  // The constructor comes here too.
  FlexGrid::updateGeometries();
}

/// What a column takes at the least for its sample and the longest word of its heading.
int FlexGrid::narrowest(int column) const {
  const QString& sample = columns_[column].sample;
  if (sample.isEmpty()) return 0;
  int width = fontMetrics().horizontalAdvance(sample) + kCellMargin;
  const QFontMetrics heading = horizontalHeader()->fontMetrics();
  for (const QString& word : TextMatrix(0, column).split(u' ', Qt::SkipEmptyParts))
    width = std::max(width, heading.horizontalAdvance(word) + kHeadingMargin);
  return width;
}

QList<int> FlexGrid::widths() const {
  QList<int> all;
  for (int column = 0; column < Cols(); ++column) {
    const Column& one = columns_[column];
    const int set = pixel(one.twip);
    all.append(set == 0 || one.byHand ? set : std::max(set, narrowest(column)));
  }
  if (spare_ < 0 || spare_ >= Cols() || all[spare_] == 0 || columns_[spare_].byHand) return all;
  const int free = viewport()->width() - std::accumulate(all.begin() + FixedCols(), all.end(), 0);
  all[spare_] += std::max(free, 0);
  return all;
}

/// As set, or what the headings need that go over two lines.
int FlexGrid::headingHeight() const {
  const QFontMetrics heading = horizontalHeader()->fontMetrics();
  int needed = fontMetrics().height() + kHeadingPadding;
  for (int column = 0; column < Cols(); ++column) {
    const int width = std::max(horizontalHeader()->sectionSize(column) - kHeadingMargin, 1);
    const bool visible = !columns_[column].sample.isEmpty() && !isColumnHidden(column);
    if (visible && heading.horizontalAdvance(TextMatrix(0, column).trimmed()) > width)
      needed = std::max(needed, 2 * heading.height() + kHeadingPadding / 2);
  }
  return std::max(headingHeight_, needed);
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (spare_ >= 0) showColumns();
  if (notice_) notice_->setGeometry(viewport()->rect());
}

void FlexGrid::updateGeometries() {
  QTableView::updateGeometries();
  if (fixedView_ != nullptr) fixedView_->arrange();
  Q_EMIT arranged();
}

void FlexGrid::sizeRows() {
  const int row = fontMetrics().height();
  verticalHeader()->setMinimumSectionSize(row + kPadding);
  verticalHeader()->setDefaultSectionSize(row + kPadding);
  showColumns();
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
  return headingCell_ >= 0 ? headingCell_ : currentIndex().column();
}

void FlexGrid::setCell(int row, int column) {
  const QModelIndex cell = model_->index(row - 1, column);
  if (!cell.isValid() || column < FixedCols()) return;
  setCurrentIndex(cell);
  scrollTo(cell);
}

void FlexGrid::setFixedCell(int row, int column) {
  if (row < 0 || row >= Rows() || column < 0 || column >= Cols() || !isFixedCell(row, column)) return;
  const int sideways = horizontalScrollBar()->value();
  const bool fixedColumn = column < FixedCols();
  // The heading stands above whatever row is the uppermost just then.
  scrollTo(model_->index(row == 0 ? std::max(rowAt(0), 0) : row - 1, fixedColumn ? FixedCols() : column));
  if (fixedColumn) horizontalScrollBar()->setValue(sideways);
  if (row > 0) return setCurrentIndex(model_->index(row - 1, column));
  selectionModel()->clear();
  headingCell_ = column;
  Q_EMIT entered(row, column);
}

void FlexGrid::markRow(int row) {
  if (row < 1 || row >= Rows() || FixedCols() >= Cols()) return;
  if (Row() != row) setCell(row, FixedCols());
  selectionModel()->select({model_->index(row - 1, 0), model_->index(row - 1, Cols() - 1)},
                           QItemSelectionModel::ClearAndSelect);
}

void FlexGrid::setWholeRows(bool on) {
  setSelectionBehavior(on ? QAbstractItemView::SelectRows : QAbstractItemView::SelectItems);
}

void FlexGrid::setRowInFields(int row) {
  model_->setRowInFields(row);
}

int FlexGrid::RowInFields() const {
  return model_->rowInFields();
}

void FlexGrid::setNotice(const QString& text) {
  if (!notice_) {
    if (text.isEmpty()) return;
    notice_ = new QLabel(viewport());
    notice_->setObjectName(QStringLiteral("AvvisoElenco"));
    notice_->setAlignment(Qt::AlignCenter);
    notice_->setWordWrap(true);
    notice_->setProperty("note", true);
    notice_->setAttribute(Qt::WA_TransparentForMouseEvents);
  }
  notice_->setText(text);
  notice_->setGeometry(viewport()->rect());
  notice_->setVisible(!text.isEmpty());
}

QString FlexGrid::Notice() const {
  return notice_ ? notice_->text() : QString();
}

void FlexGrid::fixedPressed(const QModelIndex& cell) {
  setFocus(Qt::MouseFocusReason);
  setCell(cell.row() + 1, FixedCols());
  Q_EMIT cellClicked(cell.row() + 1, cell.column());
}

void FlexGrid::currentChanged(const QModelIndex& fresh, const QModelIndex& before) {
  QTableView::currentChanged(fresh, before);
  headingCell_ = -1;
  if (fresh.isValid()) Q_EMIT entered(fresh.row() + 1, fresh.column());
}

QModelIndex FlexGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  const QModelIndex now = currentIndex();
  // The columns are hidden in this view, which finds no way out of a hidden one.
  if (now.isValid() && now.column() < FixedCols()) return model_->index(now.row(), FixedCols());
  return QTableView::moveCursor(action, modifiers);
}

void FlexGrid::setRedraw(bool on) {
  const bool wasOn = Redraw();
  off_ = on ? std::max(off_ - 1, 0) : off_ + 1;
  if (Redraw() == wasOn) return;
  if (on)
    model_->resume();
  else
    model_->suspend();
  if (columnsWait_) showColumns();
  // Left to the first paint, a pending layout would ask for a second one.
  if (on) executeDelayedItemsLayout();
  setUpdatesEnabled(on);
}

bool FlexGrid::Redraw() const {
  return off_ == 0;
}

QString FlexGrid::rowText(int row, int first, int last) const {
  QStringList cells;
  for (int column = first; column <= last; ++column) cells << inOneCell(TextMatrix(row, column));
  return cells.join(QLatin1Char('\t'));
}

QString FlexGrid::Clip() const {
  QStringList rows;
  for (const QItemSelectionRange& area : selectionModel()->selection())
    for (int row = area.top(); row <= area.bottom(); ++row)
      rows << rowText(row + 1, area.left(), area.right());
  return rows.join(QLatin1Char('\n'));
}

void FlexGrid::setCopyEntries(const QList<CopyEntry>& entries) {
  copyEntries_ = entries;
}

void FlexGrid::setOwnMenu(bool on) {
  ownMenu_ = on;
}

void FlexGrid::copy() const {
  // With nothing selected the clipboard keeps what it holds.
  if (selectionModel()->hasSelection()) QGuiApplication::clipboard()->setText(Clip());
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return copy();
  const int key = event->key();
  const bool chooses =
      key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2 || key == Qt::Key_Space;
  if (!chooses || event->modifiers().testFlag(Qt::ControlModifier)) return QTableView::keyPressEvent(event);
  if (!event->isAutoRepeat() && Row() > 0) Q_EMIT cellClicked(Row(), Col());
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) return QTableView::mousePressEvent(event);
  event->accept();
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) return QTableView::mouseDoubleClickEvent(event);
  event->accept();
}

void FlexGrid::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Keyboard) return openMenu(event->globalPos());
  if (!ownMenu_ && Col() >= 0) Q_EMIT menuAsked(mapToGlobal(CellRect(Row(), Col()).center()));
  if (!ownMenu_) return;
  const int below = Row() > 0 ? rowViewportPosition(Row() - 1) + rowHeight(Row() - 1) : 0;
  openMenu(Row(), viewport()->mapToGlobal(QPoint(0, below)));
}

void FlexGrid::openMenu(const QPoint& at) {
  if (!ownMenu_) {
    Q_EMIT menuAsked(at);
    return;
  }
  openMenu(rowAt(viewport()->mapFromGlobal(at).y()) + 1, at);
}

void FlexGrid::openMenu(int row, const QPoint& at) {
  if (row < 1) return;
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("MenuElenco"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  // The texts of now: the list may be filled anew under the open menu.
  const auto add = [menu](const QString& caption, const QString& text) {
    QAction* entry = menu->addAction(caption, [text] { QGuiApplication::clipboard()->setText(text); });
    entry->setObjectName(caption);
    entry->setEnabled(!text.trimmed().isEmpty());
  };
  add(QStringLiteral("Copia riga"), rowText(row, 0, Cols() - 1));
  for (const CopyEntry& entry : std::as_const(copyEntries_))
    add(entry.caption, inOneCell(TextMatrix(row, entry.column)));
  menu->popup(at);
}

bool FlexGrid::isCut(const QModelIndex& cell) const {
  return sizeHintForIndex(cell).width() > visualRect(cell).intersected(viewport()->rect()).width();
}

bool FlexGrid::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto& help = *static_cast<const QHelpEvent*>(event);
  const QModelIndex cell = indexAt(help.pos());
  if (cell.isValid() && isCut(cell))
    QToolTip::showText(help.globalPos(), plainToolTip(TextMatrix(cell.row() + 1, cell.column())), viewport(),
                       visualRect(cell));
  else
    QToolTip::hideText();
  return true;
}
