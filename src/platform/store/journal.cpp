#include "platform/store/journal.h"

#include <sqlite3.h>
#include <unistd.h>

#include <QFileInfo>

#include "platform/error.h"
#include "platform/store/engine.h"

namespace store {

namespace {

bool moved(sqlite3* db) {
  int outcome = 0;
  return sqlite3_file_control(db, "main", SQLITE_FCNTL_HAS_MOVED, &outcome) == SQLITE_OK && outcome != 0;
}

}  // namespace

// The engine deletes the journal under its lock, hence never one that somebody still needs. What it cannot
// delete stays: the archive is whole with or without it.
void RemoveJournal(sqlite3* db) {
  if (sqlite3_db_readonly(db, "main") != 0 || moved(db)) return;
  sqlite3_busy_timeout(db, 0);
  sqlite3_exec(db, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
}

// The engine takes a log for the file's, whatever file it was written for.
void SettleLogs(const QString& archive) {
  const QString journal = archive + QStringLiteral("-journal");
  const QString log = archive + QStringLiteral("-wal");
  if (!QFileInfo::exists(log) && !QFileInfo::exists(journal)) return;
  if (QFileInfo(archive).size() > 0) {
    const Engine db = OpenEngine(archive, SQLITE_OPEN_READWRITE);
    sqlite3_exec(db.get(), "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    const int outcome = sqlite3_exec(db.get(), "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
    if (outcome == SQLITE_BUSY && QFileInfo::exists(log)) throw errors::accessDenied(archive);
  }
  for (const QString& left : {journal, log, archive + QStringLiteral("-shm")})
    ::unlink(left.toUtf8().constData());
}

}  // namespace store
