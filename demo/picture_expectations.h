#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

/// The pictures of the receipts dot by dot, in the shop's bitmaps and on the till's paper, read with nothing
/// of the program's own code. What cannot be read throws std::runtime_error.
namespace expectations {

struct Dots {
  std::size_t width = 0;
  std::size_t height = 0;
  /// Row by row from the top; true for a dot that prints.
  std::vector<bool> prints;
  bool operator==(const Dots&) const = default;
};

/// An uncompressed bitmap of two colours, the dark one of which prints.
Dots readBitmap(const std::filesystem::path& file);
/// The till's paper: a packed portable bitmap without remarks.
Dots readPaper(const std::filesystem::path& file);

}  // namespace expectations
