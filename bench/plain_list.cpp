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

QString amount(sqlite3_stmt* sentence, int column) {
  return QString::number(sqlite3_column_int(sentence, column) / 100.0, 'f', 2);
}

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

void PlainList::fill(base::Sqlite& sqlite, const char* sql, const std::vector<int>& amounts) {
  sqlite3_stmt* sentence = sqlite.prepare(sql);
  const int columns = sqlite3_column_count(sentence);
  std::vector<bool> inCents(static_cast<std::size_t>(columns));
  for (const int column : amounts) inCents[static_cast<std::size_t>(column)] = true;
  std::vector<QString> cells;
  while (sqlite3_step(sentence) == SQLITE_ROW)
    for (int i = 0; i < columns; ++i)
      cells.push_back(inCents[static_cast<std::size_t>(i)] ? amount(sentence, i) : text(sentence, i));
  sqlite3_reset(sentence);
  model_.take(std::move(cells), columns);
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
