#include "platform/store/giornale.h"

#include <sqlite3.h>
#include <unistd.h>

#include <QFileInfo>

#include "platform/store/motore.h"

namespace store {

namespace {

bool spostato(sqlite3* db) {
  int esito = 0;
  return sqlite3_file_control(db, "main", SQLITE_FCNTL_HAS_MOVED, &esito) == SQLITE_OK && esito != 0;
}

}  // namespace

// The engine deletes the journal under its lock, hence never one that somebody still needs. What it cannot
// delete stays: the archive is whole with or without it.
void TogliGiornale(sqlite3* db) {
  if (sqlite3_db_readonly(db, "main") != 0 || spostato(db)) return;
  sqlite3_busy_timeout(db, 0);
  sqlite3_exec(db, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
}

void ChiudiGiornale(const QString& archivio) {
  const QString giornale = archivio + QStringLiteral("-journal");
  if (!QFileInfo::exists(giornale)) return;
  if (QFileInfo(archivio).size() > 0) {
    const Motore db = ApriMotore(archivio, SQLITE_OPEN_READWRITE);
    sqlite3_exec(db.get(), "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
  }
  ::unlink(giornale.toUtf8().constData());
}

}  // namespace store
