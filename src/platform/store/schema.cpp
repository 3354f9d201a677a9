#include "platform/store/schema.h"

#include <sqlite3.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/store/functions.h"

namespace store {

namespace {

struct Column {
  std::string table;
  std::string name;
  std::string kind;
  /// Among the columns of its table, from 0.
  std::size_t place = 0;
  bool leadsIndex = false;
};

std::string text(sqlite3_stmt* statement, int column) {
  const auto* byte = sqlite3_column_text(statement, column);
  if (byte == nullptr) return {};
  return static_cast<const char*>(static_cast<const void*>(byte));
}

bool forEachRow(sqlite3* db, const char* sql, const std::function<void(sqlite3_stmt*)>& row) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) return false;
  int outcome = SQLITE_ROW;
  while ((outcome = sqlite3_step(statement)) == SQLITE_ROW) row(statement);
  sqlite3_finalize(statement);
  return outcome == SQLITE_DONE;
}

constexpr char kColumns[] =
    "SELECT m.name, c.name, c.type, c.cid, EXISTS (SELECT 1 FROM pragma_index_list(m.name) AS l, "
    "pragma_index_xinfo(l.name) "
    "AS x WHERE x.seqno = 0 AND x.name = c.name AND x.coll = 'NOCASE' AND l.partial = 0) "
    "FROM main.sqlite_master AS m, pragma_table_info(m.name) AS c WHERE m.type = 'table' AND m.rootpage > 0";

bool readColumns(sqlite3* db, std::vector<Column>& columns) {
  return forEachRow(db, kColumns, [&](sqlite3_stmt* row) {
    columns.push_back({text(row, 0), text(row, 1), text(row, 2),
                       static_cast<std::size_t>(sqlite3_column_int(row, 3)),
                       sqlite3_column_int(row, 4) != 0});
  });
}

/// Does the column itself compare as text and without regard to case? A range on any other column would lose
/// rows that the pattern takes.
bool caselessText(sqlite3* db, const Column& column) {
  const char* collation = nullptr;
  const int outcome = sqlite3_table_column_metadata(db, "main", column.table.c_str(), column.name.c_str(),
                                                    nullptr, &collation, nullptr, nullptr, nullptr);
  return outcome == SQLITE_OK && collation != nullptr && EqualCaseless(collation, "NOCASE") &&
         EqualCaseless(column.kind, "TEXT");
}

void fillDictionary(sqlite3* db, const std::vector<Column>& columns, Dictionary& dictionary) {
  Dictionary unfit;
  for (const Column& column : columns)
    if (!caselessText(db, column)) unfit.add(column.name);
  for (const Column& column : columns)
    if (column.leadsIndex && !unfit.prefix(column.name)) dictionary.add(column.name);
  Dictionary otherKinds;
  for (const Column& column : columns)
    if (!IsDateType(column.kind)) otherKinds.add(column.name);
  for (const Column& column : columns)
    if (IsDateType(column.kind) && !otherKinds.prefix(column.name)) dictionary.addMoment(column.name);
  for (const Column& column : columns)
    if (IsDateType(column.kind)) dictionary.addMomentAt(column.table, column.place);
}

std::string quoted(const std::string& name) {
  std::string text = "\"";
  for (const char c : name) text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

std::string createGuard(const Column& column, const char* event, const char* name) {
  const std::string field = quoted(column.name);
  const std::string table = quoted(column.table);
  const std::string shape = std::string(kDateFunction) + "(new." + field + ")";
  return "CREATE TEMP TRIGGER IF NOT EXISTS " + quoted(name + column.table + "." + column.name) + " AFTER " +
         event + " ON main." + table + " WHEN new." + field + " IS NOT " + shape + " BEGIN UPDATE " + table +
         " SET " + field + " = " + shape + " WHERE rowid = new.rowid; END;";
}

/// The guards live in the connection, not in the file: a file that the user takes elsewhere opens anywhere.
bool guard(sqlite3* db, const Column& column) {
  const std::string updated = "UPDATE OF " + quoted(column.name);
  const std::string sql =
      createGuard(column, "INSERT", "inserita ") + createGuard(column, updated.c_str(), "aggiornata ");
  return sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

}  // namespace

bool IsDateType(std::string_view kind) {
  return EqualCaseless(kind, "DATETIME") || EqualCaseless(kind, "DATE");
}

bool ReadSchema(sqlite3* db, Dictionary& dictionary) {
  std::vector<Column> columns;
  dictionary.clear();
  if (!readColumns(db, columns)) return false;
  fillDictionary(db, columns, dictionary);
  for (const Column& column : columns)
    if (IsDateType(column.kind) && !guard(db, column)) return false;
  return true;
}

}  // namespace store
