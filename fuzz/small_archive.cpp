#include "small_archive.h"

#include <sqlite3.h>

#include <QFile>
#include <array>

#include "check.h"
#include "platform/store/like_pattern.h"

namespace {

const QString kNull = QStringLiteral("\u2205");

// Texts that differ in what the dialect minds: case, accents, apostrophes, wild cards, characters that fold
// into ASCII.
constexpr char kContent[] =
    "DELETE FROM TAB_ARTICOLI WHERE auto_id > 6;"
    "UPDATE TAB_ARTICOLI SET Codice_EAN = '8001', Codice_Articolo = 'A1', Descrizione = 'LATTE INTERO',"
    " Prezzo = 149, Reparto = 2 WHERE auto_id = 1;"
    "UPDATE TAB_ARTICOLI SET Codice_EAN = '8002', Codice_Articolo = 'A2', Descrizione = 'CAFF\u00C8',"
    " Prezzo = 399, VarPrezzo = 1 WHERE auto_id = 2;"
    "UPDATE TAB_ARTICOLI SET Codice_EAN = '80*', Codice_Articolo = 'dell''acqua', Descrizione = 'caff\u00E8 "
    "[k]',"
    " Prezzo = -1, Reparto = 50, PrezzoZero = 1 WHERE auto_id = 3;"
    "UPDATE TAB_ARTICOLI SET Codice_EAN = '\u212A1', Codice_Articolo = 'k1', Descrizione = NULL, Prezzo = "
    "NULL,"
    " Filler = 'ERR' WHERE auto_id = 4;"
    "UPDATE TAB_ARTICOLI SET Descrizione = '\u212Aiwi' WHERE auto_id = 5;"
    "INSERT INTO TAB_VARIAZIONI VALUES ('8001', 'C'), ('8002', 'I');"
    "INSERT INTO TAB_EAN_NUMERICI VALUES ('8001', 4294967295, 1, ''), ('8002', 0.5, 2, '');"
    "INSERT INTO TAB_VENDUTO VALUES ('20240306', 1, 'A1', '8001', 'LATTE INTERO', 298, 0, 2),"
    " ('20240307', 2, 'A2', '8002', 'CAFF\u00C8', 399, -10, 1);";

constexpr std::array kTables{u"SELECT * FROM TAB_ARTICOLI", u"SELECT * FROM TAB_VARIAZIONI",
                             u"SELECT * FROM TAB_EAN_NUMERICI", u"SELECT * FROM TAB_VARIE",
                             u"SELECT * FROM TAB_VENDUTO"};

void execute(sqlite3* db, const char* sql) {
  check(sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK);
}

void fill(sqlite3* db) {
  QFile schema(QStringLiteral(FUZZ_SCHEMA));
  check(schema.open(QIODevice::ReadOnly));
  execute(db, schema.readAll().constData());
  execute(db, kContent);
}

sqlite3* open(const char* path) {
  sqlite3* db = nullptr;
  check(sqlite3_open(path, &db) == SQLITE_OK);
  return db;
}

QString textOf(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return kNull;
    case SQLITE_INTEGER:
      return store::Value(std::int64_t{sqlite3_column_int64(statement, column)}).text();
    case SQLITE_FLOAT:
      return store::Value(sqlite3_column_double(statement, column)).text();
    default: {
      const void* bytes = sqlite3_column_text(statement, column);
      return QString::fromUtf8(static_cast<const char*>(bytes), sqlite3_column_bytes(statement, column));
    }
  }
}

void bind(sqlite3_stmt* statement, int place, const PlainArchive::Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    sqlite3_bind_int64(statement, place, *whole);
  } else if (const auto* real = std::get_if<double>(&value)) {
    sqlite3_bind_double(statement, place, *real);
  } else {
    const QByteArray text = std::get<QString>(value).toUtf8();
    sqlite3_bind_text(statement, place, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  }
}

void matches(sqlite3_context* context, int, sqlite3_value** values) {
  const auto text = [values](int i) {
    return std::string_view(static_cast<const char*>(static_cast<const void*>(sqlite3_value_text(values[i]))),
                            static_cast<std::size_t>(sqlite3_value_bytes(values[i])));
  };
  if (sqlite3_value_type(values[1]) == SQLITE_NULL) return sqlite3_result_null(context);
  sqlite3_result_int(context, store::MatchesPattern(text(0), text(1)) ? 1 : 0);
}

}  // namespace

void EngineClosing::operator()(sqlite3* db) const {
  sqlite3_close(db);
}

SmallArchive::SmallArchive() {
  const QString path = folder_.filePath(QStringLiteral("archivio.db"));
  {
    const std::unique_ptr<sqlite3, EngineClosing> db(open(path.toUtf8().constData()));
    fill(db.get());
  }
  database_ = area_.OpenDatabase(path);
  area_.BeginTrans();
}

Rows SmallArchive::query(const store::Statement& statement) {
  store::Recordset set = database_.OpenRecordset(statement);
  Rows rows;
  for (; !set.atEnd(); set.MoveNext()) {
    std::vector<QString>& row = rows.emplace_back();
    for (int i = 0; i < set.columns(); ++i) row.push_back(set.isNull(i) ? kNull : set.text(i));
  }
  return rows;
}

Tables SmallArchive::tables() {
  Tables tables;
  for (const char16_t* sql : kTables)
    tables.push_back(query(store::Statement::AsWritten(QString::fromUtf16(sql))));
  return tables;
}

PlainArchive::PlainArchive() : db_(open(":memory:")) {
  fill(db_.get());
  const int outcome = sqlite3_create_function(db_.get(), "prende", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                              nullptr, matches, nullptr, nullptr);
  check(outcome == SQLITE_OK);
}

void PlainArchive::command(const char* sql) {
  execute(db_.get(), sql);
}

bool PlainArchive::run(const char* sql, const std::vector<Value>& values, Rows& rows) {
  sqlite3_stmt* statement = nullptr;
  check(sqlite3_prepare_v2(db_.get(), sql, -1, &statement, nullptr) == SQLITE_OK);
  check(static_cast<std::size_t>(sqlite3_bind_parameter_count(statement)) == values.size());
  for (std::size_t i = 0; i < values.size(); ++i) bind(statement, static_cast<int>(i) + 1, values[i]);
  int outcome = SQLITE_ROW;
  while ((outcome = sqlite3_step(statement)) == SQLITE_ROW) {
    std::vector<QString>& row = rows.emplace_back();
    for (int i = 0; i < sqlite3_column_count(statement); ++i) row.push_back(textOf(statement, i));
  }
  sqlite3_finalize(statement);
  return outcome == SQLITE_DONE;
}

Tables PlainArchive::tables() {
  Tables tables;
  for (const char16_t* sql : kTables) {
    const QByteArray text = QString::fromUtf16(sql).toUtf8();
    check(run(text.constData(), {}, tables.emplace_back()));
  }
  return tables;
}
