#include "platform/store/connection.h"
#include "platform/store/store.h"

namespace store {

Database::Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

bool Database::isOpen() const {
  return connection_ && connection_->isOpen();
}

QString Database::path() const {
  return connection_ ? connection_->path() : QString();
}

Connection& Database::live() const {
  if (!isOpen())
    throw Errore{errors::kHandleClosed, QStringLiteral("L'oggetto non è valido o non è più impostato.")};
  return *connection_;
}

int Database::Execute(const Statement& statement) {
  return live().execute(statement);
}

Recordset Database::OpenRecordset(const Statement& statement) {
  return Recordset(live().query(statement));
}

void Database::CheckIntegrity() {
  live().checkIntegrity();
}

void Database::Close() {
  if (isOpen()) connection_->close();
}

}  // namespace store
