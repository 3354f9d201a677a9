#pragma once

#include <QColor>
#include <QString>
#include <QTableView>

class FixedColumns;
class CellModel;

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
  /// For the cells of a column that have none of their own, its heading among them.
  void setColAlignment(int column, Qt::Alignment alignment);

  /// In twips, 1440 to the inch at 96 dots: a width of 1500 is 100 pixels at scale 1. 0 hides the column.
  /// Reads what the user's hand made of it.
  void setColWidth(int column, int twip);
  int ColWidth(int column) const;
  /// On: columns grow alike to fill the view's width, and are never narrower than their widths say. Off at
  /// first.
  void setFullWidth(bool fullWidth);
  void setHeadingHeight(int twip);
  /// The leading columns that do not scroll sideways and take no current cell.
  void setFixedCols(int columns);
  int FixedCols() const;
  /// Background of the cells that have no colour of their own; invalid: the palette's.
  void setBackColor(const QColor& colour);

  /// The current cell; row 0 and column -1 with none.
  int Row() const;
  int Col() const;
  /// Makes a data cell the current one and brings it into view; a cell outside the data or in a fixed column
  /// does nothing.
  void setCell(int row, int column);
  /// Marks the whole row from its first to its last column, as the current one; the current column stays if
  /// it is in that row already.
  void markRow(int row);

  /// While off, nothing is painted and changes of cells are told to the view once, when it is on again. Fills
  /// switch it off; nested switches count.
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

 Q_SIGNALS:
  /// A data cell was clicked, or chosen by Enter or Space.
  void cellClicked(int row, int column);
  /// Another cell became the current one.
  void entered(int row, int column);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void updateGeometries() override;
  void resizeEvent(QResizeEvent* event) override;
  void currentChanged(const QModelIndex& fresh, const QModelIndex& before) override;

 private:
  void showColumns();
  double zoom() const;
  void sizeRows();
  void resized(int column, int before, int width);
  void fixedPressed(const QModelIndex& cell);
  void copy() const;

  CellModel* model_;
  FixedColumns* fixedView_ = nullptr;
  QList<int> twip_;
  int fixedCols_ = 0;
  int headingHeight_ = 0;
  int off_ = 0;
  bool arranging_ = false;
  bool fullWidth_ = false;
};
