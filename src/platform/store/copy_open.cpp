#include "platform/store/copy_open.h"

#include <sqlite3.h>

#include "platform/store/engine.h"
#include "platform/store/sqlite_errors.h"

namespace store {

void CopyOpenArchive(const QString& source, const QString& target) {
  const Engine from = OpenEngine(source, SQLITE_OPEN_READONLY);
  const Engine a = OpenEngine(target, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  sqlite3_exec(a.get(), "PRAGMA journal_mode = OFF", nullptr, nullptr, nullptr);
  sqlite3_backup* const copy = sqlite3_backup_init(a.get(), "main", from.get(), "main");
  if (copy == nullptr) throw EngineError(a.get(), Moment::Statement);
  sqlite3_backup_step(copy, -1);
  if (sqlite3_backup_finish(copy) != SQLITE_OK) throw EngineError(a.get(), Moment::Statement);
}

}  // namespace store
