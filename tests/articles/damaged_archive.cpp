#include "articles/damaged_archive.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QFile>

#include "articles/article_database.h"
#include "articles/back_room.h"

namespace {

int number(sqlite3* base, const char* sql) {
  int value = 0;
  const auto take = [](void* into, int, char** values, char**) {
    *static_cast<int*>(into) = QByteArray(values[0]).toInt();
    return 0;
  };
  EXPECT_EQ(sqlite3_exec(base, sql, take, &value, nullptr), SQLITE_OK);
  return value;
}

}  // namespace

void damage(BackRoom& room) {
  const QString path = varGlobal().NomeDB_Articoli;
  articles::ChiudiDatabase();
  sqlite3* base = nullptr;
  ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &base), SQLITE_OK);
  number(base, "CREATE TABLE RUBRICA (nome TEXT); INSERT INTO RUBRICA VALUES ('Ada')");
  const qint64 size = number(base, "PRAGMA page_size");
  const qint64 page = number(base, "SELECT rootpage FROM sqlite_master WHERE name = 'RUBRICA'");
  sqlite3_close(base);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(page > 1 && file.seek((page - 1) * size));
  ASSERT_EQ(file.write(QByteArray(size, '\x5A')), size);
  file.close();
  articles::ApriDatabase(path, room.contesto);
}
