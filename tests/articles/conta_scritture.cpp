#include "articles/conta_scritture.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "articles/article_database.h"
#include "articles/bottega.h"

ContaScritture::ContaScritture(Bottega& bottega, const QString& tabella, const QString& colonna)
    : bottega_(bottega) {
  const QString file = varGlobal().NomeDB_Articoli;
  articles::ChiudiDatabase();
  sqlite3* base = nullptr;
  EXPECT_EQ(sqlite3_open(file.toUtf8().constData(), &base), SQLITE_OK);
  const QString sql = QStringLiteral(
                          "CREATE TABLE scritture (n INTEGER); INSERT INTO scritture VALUES (0);"
                          "CREATE TRIGGER conta AFTER UPDATE OF \"%2\" ON %1 BEGIN"
                          " UPDATE scritture SET n = n + 1; END")
                          .arg(tabella, colonna);
  EXPECT_EQ(sqlite3_exec(base, sql.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(base);
  articles::ApriDatabase(file, bottega.contesto);
}

int ContaScritture::finora() const {
  return bottega_.valore(QStringLiteral("SELECT n from scritture")).toInt();
}

void ContaScritture::azzera() {
  bottega_.esegui(QStringLiteral("UPDATE scritture SET n = 0"));
}
