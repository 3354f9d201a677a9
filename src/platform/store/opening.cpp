#include <sqlite3.h>

#include <QFileInfo>

#include "platform/store/connection.h"
#include "platform/store/engine.h"
#include "platform/store/functions.h"
#include "platform/store/open_connections.h"
#include "platform/store/sqlite_errors.h"

namespace store {

namespace {

/// Bytes of one text: beyond every line of a list, and far beyond what any column takes. A file may compute
/// its own; of one of a gigabyte every copy would cost memory and time that no limit of a statement's time
/// cuts short.
constexpr int kMaxText = 1 << 24;
/// How long a statement waits for another program's lock, in ms: the person is waiting in front of the
/// screen.
constexpr int kLockWait = 150;

// TRUNCATE with EXTRA is what leaves the state before or after a transaction when the power goes. The cache,
// in KiB, holds the pages of an import of 50000 rows: pages that do not fit cost a sync each time they leave.
// What takes a single statement back lies in memory up to 64 KiB and beyond in a temporary file, as the
// engine has it. With temp_store = MEMORY it lay in pieces of a KiB, which every row of a reception paid for.
constexpr char kRules[] =
    "PRAGMA cache_size = -131072;"
    "PRAGMA foreign_keys = ON;"
    "PRAGMA synchronous = EXTRA;";

void checkFile(const QString& path) {
  const QFileInfo file(path);
  if (path.isEmpty() || !file.exists())
    throw Errore{errors::kArchiveMissing, QStringLiteral("Archivio non trovato: ") + path};
  if (!file.isFile() || !file.isReadable()) throw errors::pathAccess(path);
  if (file.size() == 0) throw errors::notADatabase(path);
}

void protect(sqlite3* db) {
  int ignored = 0;
  sqlite3_limit(db, SQLITE_LIMIT_LENGTH, kMaxText);
  sqlite3_extended_result_codes(db, 1);
  sqlite3_busy_timeout(db, kLockWait);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, &ignored);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, &ignored);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, &ignored);
  sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, &ignored);
}

/// What another program has logged beside the file and not yet written into it stays there when this one
/// closes the file.
void keepLog(sqlite3* db, const QString& path) {
  int ignored = 0;
  if (QFileInfo(path + QStringLiteral("-wal")).size() > 0)
    sqlite3_db_config(db, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, &ignored);
}

}  // namespace

std::shared_ptr<Connection> OpenConnection(const QString& path,
                                           const std::shared_ptr<WorkspaceState>& workspace) {
  checkFile(path);
  Engine engine = OpenEngine(QFileInfo(path).absoluteFilePath(), SQLITE_OPEN_READWRITE);
  sqlite3* const db = engine.get();
  auto connection = std::make_shared<Connection>(std::move(engine), path, workspace);
  protect(db);
  keepLog(db, path);
  RegisterFunctions(db, workspace->clock);
  if (sqlite3_exec(db, kRules, nullptr, nullptr, nullptr) != SQLITE_OK)
    throw EngineError(db, Moment::Opening);
  connection->readSchema();
  connection->settleJournal();
  open_connections::add(connection.get());
  return connection;
}

}  // namespace store
