#pragma once

#include <QString>
#include <chrono>
#include <memory>

#include "platform/clock.h"
#include "platform/error.h"
#include "platform/store/statement.h"
#include "platform/store/value.h"

/// The relational store: SQL texts of the callers' dialect over one file a database.
/// Every call that fails throws Errore with one of the numbers of error.h.
namespace store {

class Connection;
class RowSet;

/// Rows of a query, read whole at opening, with a current row. An empty set has `atEnd()` true at once;
/// reading a field there throws Errore 3021, naming an unknown field 3265.
class Recordset {
 public:
  explicit Recordset(std::shared_ptr<const RowSet> rows);

  bool empty() const { return RecordCount() == 0; }
  /// True behind the last row.
  bool atEnd() const { return row_ >= RecordCount(); }
  /// Moving in an empty set throws Errore 3021.
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  int RecordCount() const;

  /// Field of the current row by name, letter case aside.
  Value field(const QString& name) const;
  Value field(int column) const;
  /// Position of a column, to be looked up once before a loop. Throws 3265.
  int column(const QString& name) const;
  /// The same, -1 for a column that the query lacks.
  int place(const QString& name) const;
  int columns() const;

  /// Fast readers by position, no conversion: for loops over thousands of rows. Null throws 94.
  std::int64_t int64(int column) const;
  /// UTF-8 bytes of a text; valid as long as the record set.
  std::string_view utf8(int column) const;
  /// Text form of a field of any type, empty for null.
  QString text(int column) const;
  bool isNull(int column) const;

 private:
  std::shared_ptr<const RowSet> rows_;
  int row_ = 0;
};

/// Handle on an open database; copies share it. A default-made handle is closed.
class Database {
 public:
  Database() = default;
  explicit Database(std::shared_ptr<Connection> connection);

  bool isOpen() const;
  QString path() const;
  /// Runs one statement that returns no rows. Returns the number of rows it touched.
  int Execute(const Statement& statement);
  int Execute(Wording whole) { return Execute(Statement(whole)); }
  Recordset OpenRecordset(const Statement& statement);
  Recordset OpenRecordset(Wording whole) { return OpenRecordset(Statement(whole)); }
  /// Throws 3343 for a damaged file, 3043 where the disk fails, and nothing else: what long work asks before
  /// it writes on an archive. A millisecond for 5000 articles.
  void CheckIntegrity();
  /// Closes the file for every copy of the handle. What is open of a transaction is committed.
  /// Closing a closed handle throws Errore 3420 no more than once: it does nothing.
  void Close();

 private:
  friend class Workspace;
  Connection& live() const;
  std::shared_ptr<Connection> connection_;
};

/// How long a statement may run: longer than any of the program's takes on the slowest disk. One that goes on
/// for ever, in a foreign or forged file, is ended with Errore 3059.
inline constexpr std::chrono::milliseconds kStatementLimit{20000};

/// The default workspace: transactions over every database opened through it. A begin inside an open
/// transaction is a savepoint.
class Workspace {
 public:
  /// `clock` tells DATE() the day and has to outlive the workspace.
  explicit Workspace(const Clock& clock = systemClock(), std::chrono::milliseconds limit = kStatementLimit);
  ~Workspace();
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  /// Opens an existing database. Throws 3024 (absent), 3343 (not a database, empty included), 3260 (locked
  /// by another program), 75 (unreadable). A file that cannot be written opens read-only: its statements
  /// throw 3073.
  Database OpenDatabase(const QString& path);

  void BeginTrans();
  /// Throws 3034 with no transaction open.
  void CommitTrans();
  /// Undoes the innermost transaction. Does nothing more where the store has already undone it by itself;
  /// throws 3034 with no transaction open.
  void Rollback();
  /// Nesting depth, 0 with no transaction open.
  int level() const;
  /// Commits what stands open beyond a level: of a transaction that a procedure neither committed nor undid.
  /// Undoes it where the store has undone a part by itself, or the commit fails, which is thrown.
  void CommitDownTo(int level);

  /// Undoes every open transaction and closes every database: the end of the process.
  void Abandon();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

/// A unit of work that undoes itself unless it was committed: whatever ends it, a failed commit too, leaves
/// the archive as before or as after, never between.
class Transaction {
 public:
  /// Begins it; throws what BeginTrans throws.
  explicit Transaction(Workspace& workspace);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  /// If this throws, the transaction still has to be undone.
  void Commit();
  /// Undoes it, once; nothing after `Commit`.
  void Rollback();

 private:
  Workspace& workspace_;
  int level_;
  bool open_ = true;
};

/// Copies a template over `target`, durably and whole or not at all. Throws 53 (no source), 61, 70, 75.
void CopyArchive(const QString& source, const QString& target);

}  // namespace store
