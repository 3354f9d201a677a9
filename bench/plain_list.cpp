#include "bench/plain_list.h"

#include <QCoreApplication>
#include <algorithm>
#include <fstream>

namespace {

constexpr int kWidth = 1000;
constexpr int kHeight = 600;

QString text(sqlite3_stmt* sentence, int column) {
  const auto* byte = reinterpret_cast<const char*>(sqlite3_column_text(sentence, column));
  return QString::fromUtf8(byte, sqlite3_column_bytes(sentence, column));
}

QString amount(std::int64_t cents) {
  return QString::number(static_cast<double>(cents) / 100.0, 'f', 2);
}

/// The rows of a query as texts, one behind the other.
class Reading {
 public:
  Reading(sqlite3_stmt* sentence, const std::vector<int>& amounts, int runs)
      : sentence_(sentence), runs_(runs), sums_(static_cast<std::size_t>(columns())), inCents_(sums_.size()) {
    for (const int column : amounts) inCents_[static_cast<std::size_t>(column)] = true;
  }

  std::vector<QString> cells() {
    while (sqlite3_step(sentence_) == SQLITE_ROW) {
      if (runs_ != PlainList::kNone) breakBefore(text(sentence_, runs_));
      row();
    }
    if (runs_ != PlainList::kNone && !cells_.empty()) sums();
    return std::move(cells_);
  }
  int columns() const { return sqlite3_column_count(sentence_); }

 private:
  void row() {
    for (std::size_t i = 0; i < sums_.size(); ++i) {
      const int column = static_cast<int>(i);
      if (!inCents_[i]) {
        cells_.push_back(text(sentence_, column));
        continue;
      }
      const std::int64_t cents = sqlite3_column_int64(sentence_, column);
      sums_[i] += cents;
      cells_.push_back(amount(cents));
    }
  }
  void breakBefore(const QString& run) {
    if (!cells_.empty() && run != run_) sums();
    run_ = run;
  }
  void sums() {
    for (std::size_t i = 0; i < sums_.size(); ++i) {
      cells_.push_back(inCents_[i] ? amount(sums_[i]) : QString());
      sums_[i] = 0;
    }
  }

  sqlite3_stmt* sentence_;
  int runs_;
  QString run_;
  std::vector<std::int64_t> sums_;
  std::vector<bool> inCents_;
  std::vector<QString> cells_;
};

}  // namespace

int PlainList::Model::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(cells_.size()) / columns_;
}

int PlainList::Model::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant PlainList::Model::data(const QModelIndex& index, int role) const {
  return role == Qt::DisplayRole ? QVariant(cell(index.row(), index.column())) : QVariant();
}

const QString& PlainList::Model::cell(int row, int column) const {
  return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                static_cast<std::size_t>(column)];
}

void PlainList::Model::take(std::vector<QString> cells, int columns) {
  beginResetModel();
  cells_ = std::move(cells);
  columns_ = columns;
  endResetModel();
}

PlainList::PlainList() {
  view_.resize(kWidth, kHeight);
  view_.setModel(&model_);
}

void PlainList::fill(base::Sqlite& sqlite, const char* sql, const std::vector<int>& amounts, int runs) {
  sqlite3_stmt* sentence = sqlite.prepare(sql);
  Reading reading(sentence, amounts, runs);
  std::vector<QString> cells = reading.cells();
  sqlite3_reset(sentence);
  model_.take(std::move(cells), reading.columns());
}

void PlainList::show() {
  view_.show();
  QCoreApplication::processEvents();
}

void PlainList::write(const std::string& file) const {
  std::ofstream output(file, std::ios::binary);
  for (int row = 0; row < rows(); ++row) {
    QByteArray line;
    for (int column = 0; column < model_.columnCount({}); ++column)
      line += model_.cell(row, column).toLatin1() + ';';
    output.write(line.constData(), line.size()).write("\r\n", 2);
  }
}
