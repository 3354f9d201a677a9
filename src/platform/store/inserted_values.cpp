#include "platform/store/inserted_values.h"

namespace store {

void InsertedValues::sign(char symbol) {
  starts_ = symbol == '(' || symbol == ',';
  if (depth_ == kOutside) {
    // A list of columns.
    if (symbol == '(') table_ = {};
    return;
  }
  if (symbol == '(') ++depth_;
  if (symbol == ',' && depth_ == 1) ++place_;
  if (symbol == ')' && --depth_ == 0) depth_ = kOutside;
}

}  // namespace store
