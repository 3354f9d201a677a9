#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/store/row_set.h"

struct sqlite3;
struct sqlite3_stmt;

namespace store {

/// A prepared statement with what is worth knowing of it.
struct PreparedStatement {
  sqlite3_stmt* statement = nullptr;
  /// Of each column of the result: is it declared as date and time?
  std::vector<bool> dateColumns;
  /// What its rows took the last time: the next record set is likely to need as much.
  RowSet::Footprint footprint;
};

/// Puts a prepared statement back at its start whatever happens in between.
class StatementReset {
 public:
  explicit StatementReset(sqlite3_stmt* statement) : statement_(statement) {}
  ~StatementReset();
  StatementReset(const StatementReset&) = delete;
  StatementReset& operator=(const StatementReset&) = delete;

 private:
  sqlite3_stmt* statement_;
};

/// Prepared statements of one connection by their translated text; the one longest unused goes first.
class StatementCache {
 public:
  explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}
  ~StatementCache() { clear(); }
  StatementCache(const StatementCache&) = delete;
  StatementCache& operator=(const StatementCache&) = delete;

  /// Null where the engine refuses the text; its error stands in the connection.
  PreparedStatement* take(sqlite3* db, std::string_view sql);
  void clear();
  /// Whether the engine takes the text; its error stands in the connection where it does not.
  static bool Compiles(sqlite3* db, std::string_view sql);
  std::size_t count() const { return byText_.size(); }

 private:
  struct Entry {
    std::string sql;
    PreparedStatement prepared;
  };
  void evict();

  std::size_t capacity_;
  std::list<Entry> recent_;  ///< the last used first
  std::unordered_map<std::string_view, std::list<Entry>::iterator> byText_;
};

}  // namespace store
