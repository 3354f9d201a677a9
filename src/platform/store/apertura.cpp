#include <sqlite3.h>

#include <QFileInfo>

#include "platform/store/aperti.h"
#include "platform/store/connessione.h"
#include "platform/store/errori_sqlite.h"
#include "platform/store/funzioni.h"
#include "platform/store/motore.h"

namespace store {

namespace {

/// How long a statement waits for another program's lock, in ms: the person is waiting in front of the
/// screen.
constexpr int kAttesaBlocco = 150;

// TRUNCATE with EXTRA is what leaves the state before or after a transaction when the power goes. The cache,
// in KiB, holds the pages of an import of 50000 rows: pages that do not fit cost a sync each time they leave.
constexpr char kRegole[] =
    "PRAGMA cache_size = -131072;"
    "PRAGMA temp_store = MEMORY;"
    "PRAGMA foreign_keys = ON;"
    "PRAGMA synchronous = EXTRA;";
constexpr char kGiornale[] = "PRAGMA journal_mode = TRUNCATE;";

void controllaFile(const QString& percorso) {
  const QFileInfo file(percorso);
  if (percorso.isEmpty() || !file.exists())
    throw Errore{errore::kArchivioAssente, QStringLiteral("Impossibile trovare il file '%1'.").arg(percorso)};
  if (!file.isFile() || !file.isReadable())
    throw Errore{errore::kAccessoPercorso,
                 QStringLiteral("Errore di accesso al percorso o al file '%1'.").arg(percorso)};
  if (file.size() == 0)
    throw Errore{errore::kNonDatabase,
                 QStringLiteral("Formato di database non riconosciuto: '%1'.").arg(percorso)};
}

void proteggi(sqlite3* db) {
  int ignorato = 0;
  sqlite3_extended_result_codes(db, 1);
  sqlite3_busy_timeout(db, kAttesaBlocco);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, &ignorato);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, &ignorato);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, &ignorato);
  sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, &ignorato);
}

}  // namespace

std::shared_ptr<Connessione> ApriConnessione(const QString& percorso,
                                             std::shared_ptr<Transazioni> transazioni) {
  controllaFile(percorso);
  Motore motore = ApriMotore(QFileInfo(percorso).absoluteFilePath(), SQLITE_OPEN_READWRITE);
  sqlite3* const db = motore.get();
  auto connessione = std::make_shared<Connessione>(std::move(motore), percorso, std::move(transazioni));
  proteggi(db);
  RegistraFunzioni(db);
  if (sqlite3_exec(db, kRegole, nullptr, nullptr, nullptr) != SQLITE_OK)
    throw ErroreDelMotore(db, Momento::Apertura);
  connessione->leggiSchema();
  if (sqlite3_exec(db, kGiornale, nullptr, nullptr, nullptr) != SQLITE_OK)
    throw ErroreDelMotore(db, Momento::Apertura);
  aperti::aggiungi(connessione.get());
  return connessione;
}

}  // namespace store
