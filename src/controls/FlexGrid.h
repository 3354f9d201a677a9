#pragma once

#include <QColor>
#include <QString>
#include <QTableView>

class CellModel;
class FixedColumns;
class QLabel;

/// The one grid of the program: a table view over plain cells (text, alignment, two colours each). A cell is
/// no object, so tens of thousands of rows fill at once.
///
/// Rows count as the screens count them: row 0 is the heading, row r is the r-th row of data, and `Rows`
/// includes the heading. Columns count from 0. A cell outside the grid reads empty and is not written.
class FlexGrid : public QTableView {
  Q_OBJECT

 public:
  explicit FlexGrid(QWidget* parent = nullptr);
  ~FlexGrid() override;

  /// Of the data, under the heading.
  static constexpr int kFirstRow = 1;
  static constexpr int kTwipsPerPixel = 15;  ///< at scale 1

  int Rows() const;
  int Cols() const;
  /// New cells are empty, left aligned, in the grid's own colours; cells that go are forgotten, and a current
  /// cell among them leaves the grid with none. At least the heading row stays.
  void setRows(int rows);
  void setCols(int columns);
  /// Empties every cell, headings aside, and takes its colours and alignment back; the shape stays.
  void Clear();

  QString TextMatrix(int row, int column) const;
  void setTextMatrix(int row, int column, const QString& text);
  /// An invalid colour is the grid's own.
  QColor CellBackColor(int row, int column) const;
  void setCellBackColor(int row, int column, const QColor& colour);
  QColor CellForeColor(int row, int column) const;
  /// What is painted is this colour as far as it can be read on its ground, else a lighter or darker one.
  void setCellForeColor(int row, int column, const QColor& colour);
  Qt::Alignment CellAlignment(int row, int column) const;
  void setCellAlignment(int row, int column, Qt::Alignment alignment);
  /// For `setCellAlignment` and `setColAlignment`: numbers at the right, other texts at the left. Read back,
  /// it is the one of the two that the cell has just then.
  static constexpr Qt::Alignment kGeneralAlignment = Qt::AlignJustify;
  /// For the cells of a column that have none of their own, its heading among them.
  void setColAlignment(int column, Qt::Alignment alignment);

  /// What a font leaves open is taken from the grid's; one that leaves all open is the grid's.
  QFont CellFont(int row, int column) const;
  void setCellFont(int row, int column, const QFont& font);
  /// Ground and text of a cell as they are painted.
  QColor ShownBackColor(int row, int column) const;
  QColor ShownForeColor(int row, int column) const;

  /// In twips, 1440 to the inch at 96 dots: a width of 1500 is 100 pixels at scale 1. 0 hides the column.
  /// Reads what the person's hand made of it.
  void setColWidth(int column, int twip);
  int ColWidth(int column) const;
  /// Whether the person has dragged the column to its width since it was set.
  bool isSizedByHand(int column) const;
  /// The longest text that is usual in a column: in whatever font, the column is never narrower than that and
  /// the words of its heading, unless the person made it so. Empty: its width alone counts.
  void setColSample(int column, const QString& text);
  /// The cells of a row as samples of their columns, where they are longer: for a row of totals.
  void fitColumnsTo(int row);
  /// The column that takes what the others leave of the view's width; -1, as at first, for none.
  void setSpareColumn(int column);
  void setHeadingToolTip(int column, const QString& text);
  void setHeadingHeight(int twip);
  /// The leading columns that do not scroll sideways and take no current cell.
  void setFixedCols(int columns);
  int FixedCols() const;
  /// Whether a cell is one of the heading or of a fixed column.
  bool isFixedCell(int row, int column) const;
  /// Where a cell stands in the grid, its lines with it; empty for one that is hidden or outside. A cell that
  /// is scrolled away keeps its distance.
  QRect CellRect(int row, int column) const;
  /// Background of the cells that have no colour of their own; invalid: the palette's.
  void setBackColor(const QColor& colour);

  /// The current cell; row 0 and column -1 with none, row 0 and a column for one of the heading.
  int Row() const;
  int Col() const;
  /// Makes a data cell the current one and brings it into view; a cell outside the data or in a fixed column
  /// does nothing.
  void setCell(int row, int column);
  /// Makes a cell of the heading or of a fixed column the current one and brings it into view. Neither mouse
  /// nor keys lead there, and the next move leads away.
  void setFixedCell(int row, int column);
  /// Marks the whole row from its first to its last column, as the current one; the current column stays if
  /// it is in that row already.
  void markRow(int row);
  /// On: rows are selected, never single cells. Off at first.
  void setWholeRows(bool on);
  /// The row that stands in the screen's fields: it is framed, whatever is selected. 0 for none; a row that
  /// goes leaves none.
  void setRowInFields(int row);
  int RowInFields() const;
  /// A text in the middle of the grid, for a list without rows; empty for none.
  void setNotice(const QString& text);
  QString Notice() const;

  /// While off, nothing is painted, and changes of cells and widths are told to the view once, when it is on
  /// again. Fills switch it off; nested switches count.
  void setRedraw(bool on);
  bool Redraw() const;
  /// The grid painted once, when the scope ends.
  class Frozen {
   public:
    explicit Frozen(FlexGrid& grid) : grid_(grid) { grid_.setRedraw(false); }
    ~Frozen() { grid_.setRedraw(true); }
    Frozen(const Frozen&) = delete;
    Frozen& operator=(const Frozen&) = delete;

   private:
    FlexGrid& grid_;
  };

  /// The selected cells as text: columns parted by tabs, rows by line ends; those within a cell are blanks.
  QString Clip() const;
  /// What the menu of a row, opened by the right button, offers to copy beside "Copia riga": the cell of a
  /// column. The menu is of the row under the pointer, and opening it moves nothing.
  struct CopyEntry {
    QString caption;
    int column;
  };
  void setCopyEntries(const QList<CopyEntry>& entries);
  /// Off: `menuAsked` is all that the right button does. On at first.
  void setOwnMenu(bool on);

 Q_SIGNALS:
  /// A data cell was clicked, or chosen by Enter or Space.
  void cellClicked(int row, int column);
  /// Fixed cells as well.
  void cellDoubleClicked(int row, int column);
  /// A menu is asked for at this place of the screen, and the grid shows none of its own.
  void menuAsked(const QPoint& at);
  /// Another cell became the current one.
  void entered(int row, int column);
  /// The cells may stand elsewhere in the view: their sizes, or the view's own, have changed.
  void arranged();
  /// Sideways or up and down.
  void scrolled();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void updateGeometries() override;
  void resizeEvent(QResizeEvent* event) override;
  void currentChanged(const QModelIndex& fresh, const QModelIndex& before) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

 private:
  struct Column {
    int twip = 0;
    QString sample;
    bool byHand = false;
  };

  void showColumns();
  QList<int> widths() const;
  int narrowest(int column) const;
  int headingHeight() const;
  void sizeRows();
  void resized(int column, int before, int width);
  void fixedPressed(const QModelIndex& cell);
  void hearFixedCells();
  void copy() const;
  QString rowText(int row, int first, int last) const;
  void openMenu(const QPoint& at);
  void openMenu(int row, const QPoint& at);
  bool isCut(const QModelIndex& cell) const;

  CellModel* model_;
  FixedColumns* fixedView_ = nullptr;
  QLabel* notice_ = nullptr;
  QList<Column> columns_;
  QList<CopyEntry> copyEntries_;
  int fixedCols_ = 0;
  int headingHeight_ = 0;
  int spare_ = -1;
  int off_ = 0;
  /// The current cell, while it is one of the heading; the model has no index for it. -1 for none.
  int headingCell_ = -1;
  bool ownMenu_ = true;
  bool arranging_ = false;
  /// Widths were set while nothing is painted.
  bool columnsWait_ = false;
};
