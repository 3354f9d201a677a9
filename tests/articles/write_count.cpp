#include "articles/write_count.h"

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "sostegno/sqlite_file.h"

namespace {

/// Runs statements of the engine's on the archive's file, which is closed meanwhile.
void onFile(BackRoom& room, const QString& sql) {
  const QString file = varGlobal().NomeDB_Articoli;
  articles::ChiudiDatabase();
  runInSqlite(file, {sql});
  articles::ApriDatabase(file, room.contesto);
}

}  // namespace

WriteCount::WriteCount(BackRoom& room, const QString& table, const QString& column) : room_(room) {
  onFile(room, QStringLiteral("CREATE TABLE scritture (n INTEGER); INSERT INTO scritture VALUES (0);"
                              "CREATE TRIGGER conta AFTER UPDATE OF \"%2\" ON %1 BEGIN"
                              " UPDATE scritture SET n = n + 1; END")
                   .arg(table, column));
}

int WriteCount::soFar() const {
  return room_.value(QStringLiteral("SELECT n from scritture")).toInt();
}

void forbid(BackRoom& room, const QString& verb, const QString& table) {
  onFile(room, QStringLiteral("CREATE TRIGGER vieta BEFORE %1 ON %2 BEGIN SELECT RAISE(ABORT, 'no'); END")
                   .arg(verb, table));
}
