#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "platform/error.h"
#include "platform/store/dialect.h"
#include "platform/store/engine.h"
#include "platform/store/statement_cache.h"
#include "platform/store/statement_shapes.h"

struct sqlite3;

namespace store {

class RowSet;

/// A workspace's transaction, shared by its connections.
struct Transactions {
  int level = 0;
  /// Counts the commands entered from the event loop, and which of them began the transaction now open.
  int command = 0;
  int firstCommand = 0;
  /// Connections that have entered it.
  int participants = 0;

  bool ofAnotherCommand() const { return firstCommand != command; }
};

/// One open file. It enters the workspace's transaction at its first statement in it, so that databases
/// opened behind the begin are in it as well.
class Connection {
 public:
  Connection(Engine engine, QString path, std::shared_ptr<Transactions> transactions);
  /// Closes as `close` does; a failure has nobody to be told any more.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  bool isOpen() const { return db_ != nullptr; }
  const QString& path() const { return path_; }
  std::size_t prepared() const { return statements_.count(); }

  /// Reads the tables; fails with 3343, 3260 or 75 where the file is none of ours, locked or unreadable.
  void readSchema();
  int execute(const QString& sql);
  std::shared_ptr<const RowSet> query(const QString& sql);

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
  sqlite3_stmt* prepare(const QByteArray& source, PreparedStatement*& prepared);
  void bind(sqlite3_stmt* statement) const;
  void catchUp();
  void command(const std::string& sql);
  void commitToDisk();
  /// True if a transaction stood open in the engine; it is undone.
  bool undoIfOpen() noexcept;
  void commitAll();
  [[noreturn]] void failed(const Errore& error);
  void set(int level) noexcept;
  void release() noexcept;
  void leave(bool participated) noexcept;

  sqlite3* db_;
  QString path_;
  std::shared_ptr<Transactions> transactions_;
  Dictionary dictionary_;
  StatementCache statements_;
  StatementShapes shapes_;
  /// Of the last statement; in one of the moulds.
  const Translation* translation_ = nullptr;
  int level_ = 0;
  std::optional<Errore> undone_;
};

/// Opens an existing file. Throws as Workspace::OpenDatabase.
std::shared_ptr<Connection> OpenConnection(const QString& path, std::shared_ptr<Transactions> transactions);

}  // namespace store
