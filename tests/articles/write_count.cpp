#include "articles/write_count.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "articles/article_database.h"
#include "articles/back_room.h"

namespace {

/// Runs statements of the engine's on the archive's file, which is closed meanwhile.
void suFile(Bottega& bottega, const QString& sql) {
  const QString file = varGlobal().NomeDB_Articoli;
  articles::ChiudiDatabase();
  sqlite3* base = nullptr;
  EXPECT_EQ(sqlite3_open(file.toUtf8().constData(), &base), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(base, sql.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(base);
  articles::ApriDatabase(file, bottega.contesto);
}

}  // namespace

ContaScritture::ContaScritture(Bottega& bottega, const QString& tabella, const QString& colonna)
    : bottega_(bottega) {
  suFile(bottega, QStringLiteral("CREATE TABLE scritture (n INTEGER); INSERT INTO scritture VALUES (0);"
                                 "CREATE TRIGGER conta AFTER UPDATE OF \"%2\" ON %1 BEGIN"
                                 " UPDATE scritture SET n = n + 1; END")
                      .arg(tabella, colonna));
}

int ContaScritture::finora() const {
  return bottega_.valore(QStringLiteral("SELECT n from scritture")).toInt();
}

void vieta(Bottega& bottega, const QString& verbo, const QString& tabella) {
  suFile(bottega, QStringLiteral("CREATE TRIGGER vieta BEFORE %1 ON %2 BEGIN SELECT RAISE(ABORT, 'no'); END")
                      .arg(verbo, tabella));
}
