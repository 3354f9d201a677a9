#include "platform/store/copia_viva.h"

#include <sqlite3.h>

#include "platform/store/errori_sqlite.h"
#include "platform/store/motore.h"

namespace store {

void CopiaViva(const QString& sorgente, const QString& destinazione) {
  const Motore da = ApriMotore(sorgente, SQLITE_OPEN_READONLY);
  const Motore a = ApriMotore(destinazione, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  sqlite3_exec(a.get(), "PRAGMA journal_mode = OFF", nullptr, nullptr, nullptr);
  sqlite3_backup* const copia = sqlite3_backup_init(a.get(), "main", da.get(), "main");
  if (copia == nullptr) throw ErroreDelMotore(a.get(), Momento::Istruzione);
  sqlite3_backup_step(copia, -1);
  if (sqlite3_backup_finish(copia) != SQLITE_OK) throw ErroreDelMotore(a.get(), Momento::Istruzione);
}

}  // namespace store
