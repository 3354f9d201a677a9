#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QFont>
#include <QPalette>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

/// The cells of a grid: a text and the number of an appearance each, in two flat arrays; the few appearances
/// that are in use are kept once. Rows count as the grid counts them: 0 is the heading, and to the views row
/// r is model row r - 1. What lies outside reads empty and is not written.
class CellModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// Of a cell that wants other than its column and its grid give it. Without colours, font and alignment:
  /// theirs.
  struct Look {
    bool hasBack = false;
    bool hasFore = false;
    QRgb background = 0;
    QRgb text = 0;
    int alignment = 0;
    std::optional<QFont> font;
    bool operator<(const Look& other) const {
      return std::tie(hasBack, hasFore, background, text, alignment, font) <
             std::tie(other.hasBack, other.hasFore, other.background, other.text, other.alignment,
                      other.font);
    }
  };

  /// An alignment that looks at the text: a number stands at the right, anything else at the left. No text
  /// of one line is set flush at both sides, so that flag is free for it.
  static constexpr Qt::Alignment kGeneral = Qt::AlignJustify;
  /// Whether a cell stands in the row that the screen's fields hold.
  static constexpr int kInFieldsRole = Qt::UserRole;

  explicit CellModel(QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation direction, int role) const override;

  /// What the views ask for by `data` and `headerData`, for a row as the grid counts it.
  QVariant value(int row, int column, int role) const;

  int rows() const { return rows_; }
  int columns() const { return columns_; }
  void setRowCount(int rows);
  void setColumnCount(int columns);
  void clear();

  QString text(int row, int column) const;
  void setText(int row, int column, const QString& text);
  Look look(int row, int column) const;
  void setLook(int row, int column, const Look& look);
  /// As the cell is painted: never `kGeneral`.
  Qt::Alignment alignment(int row, int column) const;
  void setColumnAlignment(int column, Qt::Alignment alignment);
  void setHeadingToolTip(int column, const QString& text);
  /// The row that stands in the screen's fields; 0 for none. One that goes leaves none.
  void setRowInFields(int row);
  int rowInFields() const { return inFields_; }

  /// Ground of the data cells that have none of their own; invalid: the palette's.
  void setBackground(const QColor& background);
  /// The colours around the cells, against which theirs have to be read.
  void setPalette(const QPalette& palette);

  /// While suspended, changes of cells are gathered; the views are told at the end, once.
  void suspend();
  void resume();

 private:
  using Number = quint32;

  bool inside(int row, int column) const;
  std::size_t place(int row, int column) const;
  QColor background(int row, const Look& look) const;
  QColor ground(const QColor& wanted) const;
  QVariant textColour(int row, const Look& look) const;
  Number numberOf(const Look& look);
  void arrange(int columns);
  void changed(int row, int column);
  void rowChanged(int row);
  void allChanged();

  int rows_ = 1;
  int columns_ = 0;
  std::vector<QString> texts_;
  std::vector<Number> numbers_;
  std::vector<Look> looks_{Look{}};
  std::map<Look, Number> known_{{Look{}, 0}};
  std::vector<Qt::Alignment> ofColumns_;
  std::vector<QString> headingToolTips_;
  int inFields_ = 0;
  QColor background_;
  QPalette palette_;
  /// Grounds as this palette has them painted.
  mutable std::map<QRgb, QColor> grounds_;
  bool suspended_ = false;
  bool changed_ = false;
};
