#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QTableView>
#include <string>
#include <vector>

#include "bench/sqlite_base.h"

/// What a screen with a list is measured against: the rows read straight through SQLite into a vector of
/// texts, and a table view over them. No rule, no event pass, no colour.
class PlainList {
 public:
  PlainList();

  /// Reads the rows of a query, amounts in hundredths through two decimals, and hands them to the view.
  /// `amounts` are the columns of amounts. Behind each run of rows with one text in column `runs`, if there
  /// is one, a row with the sums of the amounts.
  void fill(base::Sqlite& sqlite, const char* sql, const std::vector<int>& amounts, int runs = kNone);
  /// Shows the view and lets it paint.
  void show();
  /// Every row as a line of its cells parted by ";", CR LF behind each, single bytes.
  void write(const std::string& file) const;
  int rows() const { return model_.rowCount({}); }

  static constexpr int kNone = -1;

 private:
  class Model : public QAbstractTableModel {
   public:
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    void take(std::vector<QString> cells, int columns);
    const QString& cell(int row, int column) const;

   private:
    std::vector<QString> cells_;
    int columns_ = 1;
  };

  Model model_;
  QTableView view_;
};
