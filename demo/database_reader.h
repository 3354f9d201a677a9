#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

/// A database read past the program, through a connection of its own that writes nothing. Every failure
/// throws std::runtime_error.
class DatabaseReader {
 public:
  explicit DatabaseReader(const std::filesystem::path& file);

  /// A row of a query; columns from 0, the text of a null empty.
  class Row {
   public:
    explicit Row(sqlite3_stmt* statement) : statement_(statement) {}
    std::int32_t integer(int column) const { return sqlite3_column_int(statement_, column); }
    std::string text(int column) const;

   private:
    sqlite3_stmt* statement_;
  };
  void read(const char* sql, const std::function<void(const Row&)>& row) const;

 private:
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> database_;
};
