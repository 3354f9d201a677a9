#include "sostegno/sqlite_file.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "platform/store/engine.h"

void runInSqlite(const QString& path, const QStringList& statements) {
  store::PrepareEngine();
  sqlite3* base = nullptr;
  ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &base), SQLITE_OK) << path.toStdString();
  for (const QString& sql : statements)
    EXPECT_EQ(sqlite3_exec(base, sql.toUtf8().constData(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sql.toStdString();
  sqlite3_close(base);
}
