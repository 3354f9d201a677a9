#include "platform/store/connessione.h"
#include "platform/store/store.h"

namespace store {

Database::Database(std::shared_ptr<Connessione> connessione) : connessione_(std::move(connessione)) {}

bool Database::aperto() const {
  return connessione_ && connessione_->aperta();
}

QString Database::percorso() const {
  return connessione_ ? connessione_->percorso() : QString();
}

Connessione& Database::viva() const {
  if (!aperto())
    throw Errore{errore::kHandleChiuso, QStringLiteral("L'oggetto non è valido o non è più impostato.")};
  return *connessione_;
}

int Database::Execute(const QString& sql) {
  return viva().esegui(sql);
}

Recordset Database::OpenRecordset(const QString& sql) {
  return Recordset(viva().interroga(sql));
}

void Database::Close() {
  if (aperto()) connessione_->chiudi();
}

}  // namespace store
