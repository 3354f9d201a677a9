#include <sqlite3.h>

#include "platform/store/connection.h"
#include "platform/store/date_time.h"
#include "platform/store/row_set.h"
#include "platform/store/sqlite_errors.h"

namespace store {

namespace {

/// The largest archive needs a hundredth of it; a query without end comes to it before the computer's memory.
constexpr std::size_t kMaxResult = std::size_t{512} * 1024 * 1024;

std::vector<QString> names(sqlite3_stmt* statement) {
  const int count = sqlite3_column_count(statement);
  std::vector<QString> result;
  result.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) result.push_back(QString::fromUtf8(sqlite3_column_name(statement, i)));
  return result;
}

std::string_view text(sqlite3_value* value) {
  const void* byte = sqlite3_value_text(value);
  return {static_cast<const char*>(byte), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void readText(RowSet& rows, RowSet::Cell& cell, std::string_view text, bool date) {
  const auto moment = date ? ReadDateTime(text) : std::nullopt;
  rows.writeText(cell, moment ? ItalianForm(*moment) : text);
}

// Every call on a statement's column looks the column up anew: the value is fetched once.
void readCell(sqlite3_value* value, bool date, RowSet& rows, RowSet::Cell& cell) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      cell.kind = RowSet::Kind::Integer;
      cell.integer = sqlite3_value_int64(value);
      break;
    case SQLITE_FLOAT:
      cell.kind = RowSet::Kind::Real;
      cell.real = sqlite3_value_double(value);
      break;
    case SQLITE_NULL:
      break;
    default:
      readText(rows, cell, text(value), date);
      break;
  }
}

/// Reads all rows; returns the engine's code behind the last.
int readRows(const PreparedStatement& prepared, RowSet& rows) {
  int outcome = SQLITE_ROW;
  while ((outcome = sqlite3_step(prepared.statement)) == SQLITE_ROW) {
    RowSet::Cell* const cells = rows.newRow();
    for (int i = 0; i < rows.columns(); ++i)
      readCell(sqlite3_column_value(prepared.statement, i), prepared.dateColumns[static_cast<std::size_t>(i)],
               rows, cells[i]);
    if (rows.bytes() > kMaxResult) throw errors::memoryExhausted();
  }
  return outcome;
}

}  // namespace

std::shared_ptr<const RowSet> Connection::query(const Statement& wanted) {
  PreparedStatement& prepared = prepare(wanted);
  sqlite3_stmt* const statement = prepared.statement;
  if (sqlite3_column_count(statement) == 0)
    throw Errore{errors::kNoRows,
                 QStringLiteral("Operazione non valida: l'istruzione non restituisce record.")};
  if (!undone_) catchUp();
  const StatementReset reset(statement);
  const auto rows = std::make_shared<RowSet>(names(statement), prepared.footprint);
  if (readRows(prepared, *rows) != SQLITE_DONE) failed(EngineError(db_, Moment::Statement));
  prepared.footprint = rows->footprint();
  return rows;
}

}  // namespace store
