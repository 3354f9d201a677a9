#include "platform/store/copia_viva.h"

#include <sqlite3.h>
#include <unistd.h>

#include <QFileInfo>
#include <memory>

#include "platform/store/errori_sqlite.h"

namespace store {

namespace {

struct Chiusura {
  void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using Handle = std::unique_ptr<sqlite3, Chiusura>;

Handle apri(const QString& percorso, int modo) {
  sqlite3* db = nullptr;
  const int esito = sqlite3_open_v2(percorso.toUtf8().constData(), &db, modo | SQLITE_OPEN_NOMUTEX, nullptr);
  Handle handle(db);
  if (esito != SQLITE_OK) throw ErroreDelMotore(db, Momento::Apertura);
  return handle;
}

}  // namespace

void CopiaViva(const QString& sorgente, const QString& destinazione) {
  const Handle da = apri(sorgente, SQLITE_OPEN_READONLY);
  const Handle a = apri(destinazione, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  sqlite3_exec(a.get(), "PRAGMA journal_mode = OFF", nullptr, nullptr, nullptr);
  sqlite3_backup* const copia = sqlite3_backup_init(a.get(), "main", da.get(), "main");
  if (copia == nullptr) throw ErroreDelMotore(a.get(), Momento::Istruzione);
  sqlite3_backup_step(copia, -1);
  if (sqlite3_backup_finish(copia) != SQLITE_OK) throw ErroreDelMotore(a.get(), Momento::Istruzione);
}

void ChiudiGiornale(const QString& archivio) {
  const QString giornale = archivio + QStringLiteral("-journal");
  if (!QFileInfo::exists(giornale)) return;
  if (QFileInfo(archivio).size() > 0) {
    const Handle db = apri(archivio, SQLITE_OPEN_READWRITE);
    sqlite3_exec(db.get(), "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
  }
  if (QFileInfo(giornale).size() > 0) ::unlink(giornale.toUtf8().constData());
}

}  // namespace store
