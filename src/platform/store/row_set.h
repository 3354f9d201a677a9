#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace store {

/// Rows of one query in native types, row after row in one block, with all texts in one arena.
class RowSet {
 public:
  enum class Kind : std::uint8_t { Null, Integer, Real, Text };
  struct Cell {
    union {
      std::int64_t integer = 0;
      double real;
      std::size_t start;  ///< of the text in the arena
    };
    std::uint32_t length = 0;
    Kind kind = Kind::Null;
  };

  struct Footprint {
    std::size_t cells = 0;
    std::size_t byte = 0;  ///< of text
  };

  RowSet(std::vector<QString> names, Footprint expected);

  int columns() const { return static_cast<int>(names_.size()); }
  int rows() const { return rows_; }
  /// What the rows take in memory.
  std::size_t bytes() const { return cells_.size() * sizeof(Cell) + texts_.size(); }
  Footprint footprint() const { return {cells_.size(), texts_.size()}; }
  /// Position of a name, letter case aside; -1 if there is none.
  int column(const QString& name) const;

  const Cell& cell(int row, int column) const {
    return cells_[static_cast<std::size_t>(row) * names_.size() + static_cast<std::size_t>(column)];
  }
  std::string_view text(const Cell& cell) const {
    return std::string_view(texts_).substr(cell.start, cell.length);
  }

  /// Room for one more row, all null; its cells are filled through the pointer before the next call.
  Cell* newRow();
  void writeText(Cell& cell, std::string_view text);

 private:
  std::vector<QString> names_;
  std::vector<Cell> cells_;
  std::string texts_;
  int rows_ = 0;
};

}  // namespace store
