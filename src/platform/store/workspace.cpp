#include <algorithm>
#include <vector>

#include "platform/store/connection.h"
#include "platform/store/store.h"

namespace store {

struct Workspace::Impl {
  std::shared_ptr<Transactions> transactions = std::make_shared<Transactions>();
  std::vector<std::weak_ptr<Connection>> connections;

  int& level() { return transactions->level; }
  void forgetReleased();
  std::vector<std::shared_ptr<Connection>> open();
  void commit();
  void rollback();
  void commitAll();
  void rollbackAll();
};

void Workspace::Impl::forgetReleased() {
  std::erase_if(connections, [](const auto& weak) { return weak.expired(); });
}

std::vector<std::shared_ptr<Connection>> Workspace::Impl::open() {
  forgetReleased();
  std::vector<std::shared_ptr<Connection>> live;
  for (const auto& weak : connections)
    if (auto connection = weak.lock(); connection && connection->isOpen()) live.push_back(connection);
  return live;
}

// A transaction over two files is committed file by file; a part that fails leaves the level open, for the
// rollback that follows.
void Workspace::Impl::commit() {
  const auto live = open();
  for (const auto& connection : live)
    if (connection->undone()) connection->commit(level());
  for (const auto& connection : live) connection->commit(level());
  --level();
}

void Workspace::Impl::rollback() {
  const int cancelled = level()--;
  for (const auto& connection : open()) connection->rollback(cancelled);
}

void Workspace::Impl::rollbackAll() {
  while (level() > 0) rollback();
}

void Workspace::Impl::commitAll() {
  const auto live = open();
  const bool undone = std::any_of(live.begin(), live.end(), [](const auto& c) { return c->undone(); });
  if (undone) return rollbackAll();
  try {
    while (level() > 0) commit();
  } catch (const Errore&) {
    rollbackAll();
    throw;
  }
}

Workspace::Workspace() : impl_(std::make_unique<Impl>()) {}

Workspace::~Workspace() {
  Abandon();
}

Database Workspace::OpenDatabase(const QString& path) {
  auto connection = OpenConnection(path, impl_->transactions);
  impl_->forgetReleased();
  impl_->connections.push_back(connection);
  return Database(std::move(connection));
}

void Workspace::BeginTrans() {
  Transactions& transactions = *impl_->transactions;
  if (transactions.level > 0 && transactions.ofAnotherCommand()) impl_->commitAll();
  if (transactions.level == 0) transactions.firstCommand = transactions.command;
  ++transactions.level;
}

void Workspace::CommitTrans() {
  if (level() == 0)
    throw Errore{errors::kNoTransaction, QStringLiteral("Nessuna transazione aperta da confermare.")};
  impl_->commit();
}

void Workspace::Rollback() {
  if (level() == 0)
    throw Errore{errors::kNoTransaction, QStringLiteral("Nessuna transazione aperta da annullare.")};
  impl_->rollback();
}

int Workspace::level() const {
  return impl_->level();
}

void Workspace::NewCommand() {
  ++impl_->transactions->command;
}

void Workspace::Abandon() {
  for (const auto& connection : impl_->open()) connection->abandon();
  impl_->level() = 0;
}

}  // namespace store
