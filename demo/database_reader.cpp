#include "demo/database_reader.h"

#include <stdexcept>

DatabaseReader::DatabaseReader(const std::filesystem::path& file) : database_(nullptr, sqlite3_close) {
  sqlite3* open = nullptr;
  const int outcome = sqlite3_open_v2(file.c_str(), &open, SQLITE_OPEN_READONLY, nullptr);
  database_.reset(open);
  if (outcome != SQLITE_OK) throw std::runtime_error("archive not readable");
}

std::string DatabaseReader::Row::text(int column) const {
  const auto* bytes = sqlite3_column_text(statement_, column);
  return bytes == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(bytes));
}

void DatabaseReader::read(const char* sql, const std::function<void(const Row&)>& row) const {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database_.get(), sql, -1, &prepared, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(database_.get()));
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, sqlite3_finalize);
  int step = sqlite3_step(prepared);
  for (; step == SQLITE_ROW; step = sqlite3_step(prepared)) row(Row(prepared));
  if (step != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database_.get()));
}
