#include <algorithm>
#include <utility>
#include <vector>

#include "platform/store/connection.h"
#include "platform/store/store.h"

namespace store {

struct Workspace::Impl {
  Impl(const Clock& clock, std::chrono::milliseconds limit)
      : state(std::make_shared<WorkspaceState>(WorkspaceState{clock, limit})) {}

  std::shared_ptr<WorkspaceState> state;
  std::vector<std::weak_ptr<Connection>> connections;

  int& level() { return state->level; }
  void forgetReleased();
  std::vector<std::shared_ptr<Connection>> open();
  void commit();
  void rollback();
  void commitDownTo(int target);
  void rollbackDownTo(int target);
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

void Workspace::Impl::rollbackDownTo(int target) {
  while (level() > target) rollback();
}

void Workspace::Impl::commitDownTo(int target) {
  try {
    while (level() > target) commit();
  } catch (const Errore&) {
    rollbackDownTo(target);
    throw;
  }
}

Workspace::Workspace(const Clock& clock, std::chrono::milliseconds limit)
    : impl_(std::make_unique<Impl>(clock, limit)) {}

Workspace::~Workspace() {
  Abandon();
}

Database Workspace::OpenDatabase(const QString& path) {
  auto connection = OpenConnection(path, impl_->state);
  impl_->forgetReleased();
  impl_->connections.push_back(connection);
  return Database(std::move(connection));
}

void Workspace::BeginTrans() {
  ++impl_->level();
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

void Workspace::CommitDownTo(int level) {
  impl_->commitDownTo(level);
}

void Workspace::Abandon() {
  for (const auto& connection : impl_->open()) connection->abandon();
  impl_->level() = 0;
}

Transaction::Transaction(Workspace& workspace) : workspace_(workspace) {
  workspace_.BeginTrans();
  level_ = workspace_.level();
}

Transaction::~Transaction() {
  try {
    Rollback();
  } catch (const Errore&) {
    open_ = false;  // the store has nothing left to undo: it did so by itself
  }
}

void Transaction::Commit() {
  workspace_.CommitTrans();
  open_ = false;
}

void Transaction::Rollback() {
  if (!std::exchange(open_, false)) return;
  if (workspace_.level() >= level_) workspace_.Rollback();
}

}  // namespace store
