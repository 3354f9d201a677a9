#include "platform/store/statement_cache.h"

#include <sqlite3.h>

#include "platform/store/schema.h"

namespace store {

namespace {

std::vector<bool> dateColumns(sqlite3_stmt* statement) {
  std::vector<bool> date(static_cast<std::size_t>(sqlite3_column_count(statement)));
  for (std::size_t i = 0; i < date.size(); ++i) {
    const char* kind = sqlite3_column_decltype(statement, static_cast<int>(i));
    date[i] = kind != nullptr && IsDateType(kind);
  }
  return date;
}

}  // namespace

StatementReset::~StatementReset() {
  sqlite3_reset(statement_);
}

PreparedStatement* StatementCache::take(sqlite3* db, std::string_view sql) {
  const auto known = byText_.find(sql);
  if (known != byText_.end()) {
    recent_.splice(recent_.begin(), recent_, known->second);
    return &known->second->prepared;
  }
  sqlite3_stmt* statement = nullptr;
  const int outcome = sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()),
                                         SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  if (outcome != SQLITE_OK || statement == nullptr) return nullptr;
  if (recent_.size() >= capacity_) evict();
  recent_.push_front({std::string(sql), {statement, dateColumns(statement), {}}});
  byText_.emplace(recent_.front().sql, recent_.begin());
  return &recent_.front().prepared;
}

bool StatementCache::Compiles(sqlite3* db, std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  const int outcome = sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
  sqlite3_finalize(statement);
  return outcome == SQLITE_OK;
}

void StatementCache::evict() {
  byText_.erase(recent_.back().sql);
  sqlite3_finalize(recent_.back().prepared.statement);
  recent_.pop_back();
}

void StatementCache::clear() {
  while (!recent_.empty()) evict();
}

}  // namespace store
