#include "platform/store/engine.h"

#include <sqlite3.h>

#include <mutex>

#include "platform/store/sqlite_errors.h"

namespace store {

void EngineCloser::operator()(sqlite3* db) const {
  sqlite3_close_v2(db);
}

// A statement without an order lists a table in its own order: the engine must not walk an index in its
// place. Nobody asks what memory it has taken: counting that locks at each piece.
void PrepareEngine() {
  static std::once_flag once;
  std::call_once(once, [] {
    sqlite3_config(SQLITE_CONFIG_COVERING_INDEX_SCAN, 0);
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  });
}

Engine OpenEngine(const QString& path, int mode) {
  PrepareEngine();
  sqlite3* db = nullptr;
  const int outcome = sqlite3_open_v2(path.toUtf8().constData(), &db, mode | SQLITE_OPEN_NOMUTEX, nullptr);
  Engine engine(db);
  if (outcome != SQLITE_OK) throw EngineError(db, Moment::Opening);
  return engine;
}

}  // namespace store
