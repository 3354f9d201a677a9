#include "platform/store/row_set.h"

#include <utility>

namespace store {

RowSet::RowSet(std::vector<QString> names, Footprint expected) : names_(std::move(names)) {
  cells_.reserve(expected.cells);
  texts_.reserve(expected.byte);
}

// Asked for row by row: nearly always the very same name, which the plain comparison settles.
int RowSet::column(const QString& name) const {
  for (std::size_t i = 0; i < names_.size(); ++i)
    if (names_[i].size() == name.size() &&
        (names_[i] == name || names_[i].compare(name, Qt::CaseInsensitive) == 0))
      return static_cast<int>(i);
  return -1;
}

RowSet::Cell* RowSet::newRow() {
  const std::size_t start = cells_.size();
  cells_.resize(start + names_.size());
  ++rows_;
  return cells_.data() + start;
}

void RowSet::writeText(Cell& cell, std::string_view text) {
  cell.kind = Kind::Text;
  cell.start = texts_.size();
  cell.length = static_cast<std::uint32_t>(text.size());
  texts_.append(text);
}

}  // namespace store
