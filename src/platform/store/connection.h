#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <memory>
#include <optional>

#include "platform/clock.h"
#include "platform/error.h"
#include "platform/store/dialect.h"
#include "platform/store/engine.h"
#include "platform/store/statement.h"
#include "platform/store/statement_cache.h"
#include "platform/store/statement_shapes.h"

struct sqlite3;

namespace store {

class RowSet;

/// What a workspace shares with its connections: its transaction's depth, its clock, and how long a statement
/// may run.
struct WorkspaceState {
  const Clock& clock;
  std::chrono::milliseconds limit;
  int level = 0;
};

/// One open file. It enters the workspace's transaction at its first statement in it, so that databases
/// opened behind the begin are in it as well.
class Connection {
 public:
  Connection(Engine engine, QString path, std::shared_ptr<WorkspaceState> workspace);
  /// Closes as `close` does; a failure has nobody to be told any more.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  bool isOpen() const { return db_ != nullptr; }
  const QString& path() const { return path_; }
  std::size_t prepared() const { return statements_.count(); }

  /// Reads the tables; fails with 3343, 3260 or 75 where the file is none of ours, locked or unreadable.
  void readSchema();
  /// Chooses how writes are made safe, unless another program has set the file to a log of its own: that is
  /// changed by the first write.
  void settleJournal();
  int execute(const Statement& statement);
  std::shared_ptr<const RowSet> query(const Statement& statement);
  /// Throws 3343 where the file's pages do not fit together, 3043 where the disk does not hand them out.
  void checkIntegrity();

  /// True if the engine has undone the transaction by itself: no statement is taken until it is rolled back.
  bool undone() const { return undone_.has_value(); }
  bool inTransaction() const { return level_ > 0; }
  /// Ends the innermost level if this connection has entered it.
  void commit(int level);
  void rollback(int level);
  /// Commits what is open and closes.
  void close();
  /// Undoes what is open and closes.
  void abandon() noexcept;

 private:
  PreparedStatement& prepare(const Statement& statement);
  [[noreturn]] void refuse(const Statement& statement);
  void beginTime();
  void writeByJournal();
  void bind(sqlite3_stmt* statement);
  void catchUp();
  void command(const std::string& sql);
  void commitToDisk();
  /// True if a transaction stood open in the engine; it is undone.
  bool undoIfOpen() noexcept;
  void commitAll();
  [[noreturn]] void failed(const Errore& error);
  void set(int level) noexcept;
  void release() noexcept;

  sqlite3* db_;
  QString path_;
  std::shared_ptr<WorkspaceState> workspace_;
  Dictionary dictionary_;
  StatementCache statements_;
  StatementShapes shapes_;
  /// Of the last statement; in one of the shapes.
  const Translation* translation_ = nullptr;
  /// The statement that is under way; its parameters' windows look into it.
  QByteArray source_;
  int level_ = 0;
  bool byJournal_ = false;
  std::chrono::steady_clock::time_point deadline_;
  std::optional<Errore> undone_;
};

/// Opens an existing file. Throws as Workspace::OpenDatabase.
std::shared_ptr<Connection> OpenConnection(const QString& path,
                                           const std::shared_ptr<WorkspaceState>& workspace);

}  // namespace store
