#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// What must come out of the main road, computed a second time with nothing of the program's own code: plain
/// bytes from the article list and from the till's memory. Files that cannot be read throw
/// std::runtime_error.
namespace expectations {

struct Article {
  int slot = 0;
  std::string ean;
  std::string code;
  std::string description;
  /// Hundredths.
  std::int32_t price = 0;
  int department = 0;
};

/// The lines of a nine-field list, bytes as they stand.
std::vector<Article> readList(const std::filesystem::path& file);

/// The till's 240000 bytes for those articles, slots without an article as a fresh archive has them.
std::string pluImage(const std::vector<Article>& articles);

struct Sales {
  int slot = 0;
  std::int32_t amount = 0;
  std::int32_t pieces = 0;
  std::int32_t discount = 0;
  bool operator==(const Sales&) const = default;
};

/// Slots with pieces, from the 60000 bytes of counters.
std::vector<Sales> readSales(const std::filesystem::path& file);

std::string readFile(const std::filesystem::path& file);

}  // namespace expectations
