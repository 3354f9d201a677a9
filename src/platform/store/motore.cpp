#include "platform/store/motore.h"

#include <sqlite3.h>

#include <mutex>

#include "platform/store/errori_sqlite.h"

namespace store {

void ChiusuraMotore::operator()(sqlite3* db) const {
  sqlite3_close_v2(db);
}

// A statement without an order lists a table in its own order: the engine must not walk an index in its
// place.
void PreparaMotore() {
  static std::once_flag volta;
  std::call_once(volta, [] { sqlite3_config(SQLITE_CONFIG_COVERING_INDEX_SCAN, 0); });
}

Motore ApriMotore(const QString& percorso, int modo) {
  PreparaMotore();
  sqlite3* db = nullptr;
  const int esito = sqlite3_open_v2(percorso.toUtf8().constData(), &db, modo | SQLITE_OPEN_NOMUTEX, nullptr);
  Motore motore(db);
  if (esito != SQLITE_OK) throw ErroreDelMotore(db, Momento::Apertura);
  return motore;
}

}  // namespace store
