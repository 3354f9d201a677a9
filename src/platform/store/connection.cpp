#include "platform/store/connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "platform/store/change_counter.h"
#include "platform/store/journal.h"
#include "platform/store/open_connections.h"
#include "platform/store/row_set.h"
#include "platform/store/schema.h"
#include "platform/store/sqlite_errors.h"

namespace store {

namespace {

constexpr std::size_t kMaxPrepared = 64;

std::string_view view(const QByteArray& byte) {
  return {byte.constData(), static_cast<std::size_t>(byte.size())};
}

std::string levelName(int level) {
  return "livello_" + std::to_string(level);
}

}  // namespace

Connection::Connection(Engine engine, QString path, std::shared_ptr<Transactions> transactions)
    : db_(engine.release()),
      path_(std::move(path)),
      transactions_(std::move(transactions)),
      statements_(kMaxPrepared) {}

Connection::~Connection() {
  try {
    close();
  } catch (const Errore&) {
    // The file is left as it was before the transaction.
  }
}

void Connection::readSchema() {
  if (!ReadSchema(db_, dictionary_)) throw EngineError(db_, Moment::Opening);
}

void Connection::failed(const Errore& error) {
  if (level_ > 0 && sqlite3_get_autocommit(db_) != 0) undone_ = error;
  throw error;
}

void Connection::command(const std::string& sql) {
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    failed(EngineError(db_, Moment::Statement));
}

void Connection::catchUp() {
  while (level_ < transactions_->level) {
    command(level_ == 0 ? std::string("BEGIN") : "SAVEPOINT " + levelName(level_ + 1));
    set(level_ + 1);
  }
}

bool Connection::undoIfOpen() noexcept {
  if (sqlite3_get_autocommit(db_) != 0) return false;
  sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
  return true;
}

void Connection::set(int level) noexcept {
  if (level_ == 0 && level > 0) ++transactions_->participants;
  if (level_ > 0 && level == 0) --transactions_->participants;
  level_ = level;
}

sqlite3_stmt* Connection::prepare(const QByteArray& source, PreparedStatement*& prepared) {
  translation_ = &shapes_.translate(view(source), dictionary_);
  prepared = statements_.take(db_, translation_->sql);
  if (prepared == nullptr) failed(PreparationError(db_, view(source), dictionary_));
  bind(prepared->statement);
  return prepared->statement;
}

// The windows on the source stay bound when the call is over; every later use binds all of them anew.
void Connection::bind(sqlite3_stmt* statement) const {
  int place = 0;
  for (const Parameter& parameter : translation_->parameters) {
    ++place;
    switch (parameter.kind) {
      case Parameter::Kind::Integer:
        sqlite3_bind_int64(statement, place, parameter.integer);
        break;
      case Parameter::Kind::Real:
        sqlite3_bind_double(statement, place, parameter.real);
        break;
      case Parameter::Kind::Text:
        sqlite3_bind_text64(statement, place, parameter.text.data(), parameter.text.size(), SQLITE_STATIC,
                            SQLITE_UTF8);
        break;
    }
  }
}

int Connection::execute(const QString& sql) {
  if (undone_) throw *undone_;
  const QByteArray source = sql.toUtf8();
  PreparedStatement* prepared = nullptr;
  sqlite3_stmt* const statement = prepare(source, prepared);
  if (sqlite3_column_count(statement) > 0)
    throw Errore{errors::kNotExecutable, QStringLiteral("Impossibile eseguire una query di selezione.")};
  catchUp();
  const StatementReset reset(statement);
  if (sqlite3_step(statement) != SQLITE_DONE) failed(EngineError(db_, Moment::Statement));
  if (translation_->definition) {
    readSchema();
    return 0;
  }
  return sqlite3_changes(db_);
}

// A commit that failed behind its last step has been made all the same: the file tells. One that the engine
// leaves open found the file locked and wrote nothing.
void Connection::commitToDisk() {
  const auto before = ChangeCounter(db_);
  if (sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK) return;
  const Errore error = EngineError(db_, Moment::Statement);
  if (!undoIfOpen()) {
    const bool reread =
        sqlite3_exec(db_, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr) == SQLITE_OK;
    if (reread && before && ChangeCounter(db_) != before) return;
  }
  undone_ = error;
  throw error;
}

void Connection::commit(int level) {
  if (undone_) throw *undone_;
  if (level_ < level) return;
  if (level > 1) {
    command("RELEASE " + levelName(level));
  } else {
    commitToDisk();
  }
  set(level_ - 1);
}

void Connection::rollback(int level) {
  if (undone_) {
    if (level == 1) undone_.reset();
    set(std::min(level_, level - 1));
    return;
  }
  if (level_ < level) return;
  set(level - 1);
  if (level == 1) return command("ROLLBACK");
  command("ROLLBACK TO " + levelName(level));
  command("RELEASE " + levelName(level));
}

void Connection::commitAll() {
  if (undone_ || level_ == 0) return;
  while (level_ > 0) commit(level_);
}

void Connection::close() {
  if (!isOpen()) return;
  const bool participated = inTransaction();
  try {
    commitAll();
  } catch (const Errore&) {
    release();
    leave(participated);
    throw;
  }
  release();
  leave(participated);
}

void Connection::abandon() noexcept {
  const bool participated = inTransaction();
  release();
  leave(participated);
}

// A transaction that an earlier command left open ends with the last database in it.
void Connection::leave(bool participated) noexcept {
  if (participated && transactions_->participants == 0 && transactions_->ofAnotherCommand())
    transactions_->level = 0;
}

// After a failure of the disk the journal is left to the next opening, which may have to play it back.
void Connection::release() noexcept {
  if (!isOpen()) return;
  set(0);
  statements_.empty();
  undoIfOpen();
  if (!undone_) RemoveJournal(db_);
  open_connections::remove(this);
  EngineCloser{}(std::exchange(db_, nullptr));
  undone_.reset();
}

}  // namespace store
