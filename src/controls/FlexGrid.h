#pragma once

#include <QColor>
#include <QString>
#include <QTableView>

class ColonneFisse;
class ModelloCelle;

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
  void impostaRows(int righe);
  void impostaCols(int colonne);
  /// Empties every cell, headings aside, and takes its colours and alignment back; the shape stays.
  void Clear();

  QString TextMatrix(int riga, int colonna) const;
  void impostaTextMatrix(int riga, int colonna, const QString& testo);
  /// An invalid colour is the grid's own.
  QColor CellBackColor(int riga, int colonna) const;
  void impostaCellBackColor(int riga, int colonna, const QColor& colore);
  QColor CellForeColor(int riga, int colonna) const;
  /// What is painted is this colour as far as it can be read on its ground, else a lighter or darker one.
  void impostaCellForeColor(int riga, int colonna, const QColor& colore);
  Qt::Alignment CellAlignment(int riga, int colonna) const;
  void impostaCellAlignment(int riga, int colonna, Qt::Alignment allineamento);
  /// For the cells of a column that have none of their own, its heading among them.
  void impostaColAlignment(int colonna, Qt::Alignment allineamento);

  /// In twips, 1440 to the inch at 96 dots: a width of 1500 is 100 pixels at scale 1. 0 hides the column.
  /// Reads what the user's hand made of it.
  void impostaColWidth(int colonna, int twip);
  int ColWidth(int colonna) const;
  /// On: columns grow alike to fill the view's width, and are never narrower than their widths say. Off at
  /// first.
  void impostaLarghezzaPiena(bool piena);
  void impostaAltezzaTestata(int twip);
  /// The leading columns that do not scroll sideways and take no current cell.
  void impostaFixedCols(int colonne);
  int FixedCols() const;
  /// Background of the cells that have no colour of their own; invalid: the palette's.
  void impostaBackColor(const QColor& colore);

  /// The current cell; row 0 and column -1 with none.
  int Row() const;
  int Col() const;
  /// Makes a data cell the current one and brings it into view; a cell outside the data or in a fixed column
  /// does nothing.
  void impostaCella(int riga, int colonna);
  /// Marks the whole row from its first to its last column, as the current one; the current column stays if
  /// it is in that row already.
  void selezionaRiga(int riga);

  /// While off, nothing is painted and changes of cells are told to the view once, when it is on again. Fills
  /// switch it off; nested switches count.
  void impostaRedraw(bool acceso);
  bool Redraw() const;

  /// The selected cells as text: columns parted by tabs, rows by line ends; those within a cell are blanks.
  QString Clip() const;

 Q_SIGNALS:
  /// A data cell was clicked, or chosen by Enter or Space.
  void clic(int riga, int colonna);
  /// Another cell became the current one.
  void entrata(int riga, int colonna);

 protected:
  void keyPressEvent(QKeyEvent* evento) override;
  void changeEvent(QEvent* evento) override;
  void updateGeometries() override;
  void resizeEvent(QResizeEvent* evento) override;
  void currentChanged(const QModelIndex& nuova, const QModelIndex& prima) override;

 private:
  void mostraColonne();
  double ingrandimento() const;
  void misuraRighe();
  void ridimensionata(int colonna, int prima, int larghezza);
  void premutaFissa(const QModelIndex& cella);
  void copia() const;

  ModelloCelle* modello_;
  ColonneFisse* fisse_ = nullptr;
  QList<int> twip_;
  int fixed_ = 0;
  int altezzaTestata_ = 0;
  int spento_ = 0;
  bool dispone_ = false;
  bool piena_ = false;
};
