// The translator of the statements' dialect: whatever the user typed stands in them, unescaped. What it lets
// through must be one statement with exactly the parameters that it lifted.

#include <sqlite3.h>

#include <string_view>

#include "check.h"
#include "platform/clock.h"
#include "platform/error.h"
#include "platform/store/dialect.h"
#include "platform/store/functions.h"

namespace {

sqlite3* engine() {
  static sqlite3* const db = [] {
    sqlite3* open = nullptr;
    check(sqlite3_open(":memory:", &open) == SQLITE_OK);
    store::RegisterFunctions(open, systemClock());
    sqlite3_exec(open,
                 "CREATE TABLE T (a TEXT COLLATE NOCASE, b INTEGER, d DATETIME); CREATE INDEX I ON T (a)",
                 nullptr, nullptr, nullptr);
    return open;
  }();
  return db;
}

void compare(const store::Translation& translation) {
  sqlite3_stmt* statement = nullptr;
  const char* rest = nullptr;
  const int length = static_cast<int>(translation.sql.size());
  if (sqlite3_prepare_v2(engine(), translation.sql.data(), length, &statement, &rest) != SQLITE_OK) return;
  check(static_cast<std::size_t>(sqlite3_bind_parameter_count(statement)) == translation.parameters.size());
  check(std::string_view(rest).find_first_not_of(' ') == std::string_view::npos);
  sqlite3_finalize(statement);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
  static const store::Dictionary dictionary = [] {
    store::Dictionary fresh;
    fresh.add("a");
    return fresh;
  }();
  static store::Translation translation;
  const std::string_view text = textOf(data, count);
  try {
    store::Translate(text, dictionary, translation);
  } catch (const Errore& error) {
    check(error.numero != 0 && !error.descrizione.isEmpty());
    return 0;
  }
  if (!translation.definition) compare(translation);
  return 0;
}
