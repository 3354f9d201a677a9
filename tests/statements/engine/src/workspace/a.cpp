#include <sqlite3.h>

void rename(sqlite3* archive, const char* typed) {
  sqlite3_exec(archive, typed, nullptr, nullptr, nullptr);
}
