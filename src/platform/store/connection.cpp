#include "platform/store/connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/store/change_counter.h"
#include "platform/store/journal.h"
#include "platform/store/lexer.h"
#include "platform/store/open_connections.h"
#include "platform/store/row_set.h"
#include "platform/store/schema.h"
#include "platform/store/sqlite_errors.h"

namespace store {

namespace {

constexpr std::size_t kMaxPrepared = 64;
/// Steps of the engine's between two looks at the clock: some microseconds, where no step is a function over
/// a long text. The engine counts them anew at each statement, and what opens a large schema is many small
/// ones.
constexpr int kStepsBetweenLooks = 100;

std::string_view view(const QByteArray& byte) {
  return {byte.constData(), static_cast<std::size_t>(byte.size())};
}

/// Writes over the statement before, in its memory: most statements are ASCII. Others are converted anew.
void toUtf8(QStringView text, QByteArray& utf8) {
  constexpr char16_t kFirstBeyondAscii = 0x80;
  utf8.resize(text.size());
  char* to = utf8.data();
  char16_t all = 0;
  for (const QChar character : text) {
    all |= character.unicode();
    *to++ = static_cast<char>(character.unicode());
  }
  if (all >= kFirstBeyondAscii) utf8 = text.toUtf8();
}

int overdue(void* deadline) {
  return std::chrono::steady_clock::now() > *static_cast<std::chrono::steady_clock::time_point*>(deadline);
}

/// Whether the engine's check of a file stumbled over a page that the disk did not hand out. It tells so
/// among the damages, with the code of the failed read.
bool unreadable(std::string_view finding) {
  constexpr std::string_view kBefore = "error code=";
  const std::size_t at = finding.find(kBefore);
  if (at == std::string_view::npos) return false;
  int code = 0;
  std::from_chars(finding.data() + at + kBefore.size(), finding.data() + finding.size(), code);
  return (code & 0xFF) == SQLITE_IOERR;
}

std::string levelName(int level) {
  return "livello_" + std::to_string(level);
}

}  // namespace

Connection::Connection(Engine engine, QString path, std::shared_ptr<WorkspaceState> workspace)
    : db_(engine.release()),
      path_(std::move(path)),
      workspace_(std::move(workspace)),
      statements_(kMaxPrepared) {
  sqlite3_progress_handler(db_, kStepsBetweenLooks, overdue, &deadline_);
  beginTime();
}

Connection::~Connection() {
  try {
    close();
  } catch (const Errore&) {
    // The file is left as it was before the transaction.
  }
}

void Connection::beginTime() {
  deadline_ = std::chrono::steady_clock::now() + workspace_->limit;
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
  if (workspace_->level > 0) writeByJournal();
  while (level_ < workspace_->level) {
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
  level_ = level;
}

PreparedStatement& Connection::prepare(const Statement& statement) {
  beginTime();
  toUtf8(statement.sql(), source_);
  if (statement.broken()) refuse(statement);
  translation_ = &shapes_.translate(view(source_), dictionary_);
  PreparedStatement* const prepared = statements_.take(db_, translation_->sql);
  if (prepared == nullptr) failed(PreparationError(db_, view(source_), dictionary_));
  bind(prepared->statement);
  return *prepared;
}

// A value that leaves its place is no part of any statement, even where what it makes of it could be run. The
// message is that of the statement as it stands, if it has one.
void Connection::refuse(const Statement& statement) {
  const Statement::Break& where = *statement.broken();
  const auto at = static_cast<std::size_t>(statement.sql().left(where.at).toUtf8().size());
  Errore error = SyntaxError(QStringLiteral("operatore mancante"), view(source_), at);
  const QString rest = statement.sql().mid(where.at).trimmed();
  bool textForNumber = where.number && (rest.startsWith(u'\'') || rest.startsWith(u'"'));
  try {
    Translation translation;
    Translate(view(source_), dictionary_, translation);
    if (!StatementCache::Compiles(db_, translation.sql))
      throw PreparationError(db_, view(source_), dictionary_);
  } catch (const Errore& own) {
    if (own.numero == errors::kSyntax || own.numero == errors::kTextPastEnd)
      error.descrizione = own.descrizione;
    textForNumber = textForNumber || (where.number && own.numero == errors::kMissingParameter);
  }
  if (textForNumber)
    error = {errors::kCriteriaMismatch,
             QStringLiteral("Tipo di dati non corrispondente nell'espressione criterio.")};
  failed(error);
}

// The windows on the source stay bound when the call is over; every later use binds all of them anew.
void Connection::bind(sqlite3_stmt* statement) {
  int place = 0;
  int outcome = SQLITE_OK;
  for (const Parameter& parameter : translation_->parameters) {
    ++place;
    switch (parameter.kind) {
      case Parameter::Kind::Integer:
        outcome = sqlite3_bind_int64(statement, place, parameter.integer);
        break;
      case Parameter::Kind::Real:
        outcome = sqlite3_bind_double(statement, place, parameter.real);
        break;
      case Parameter::Kind::Text:
        outcome = sqlite3_bind_text64(statement, place, parameter.text.data(), parameter.text.size(),
                                      SQLITE_STATIC, SQLITE_UTF8);
        break;
    }
    if (outcome != SQLITE_OK) failed(EngineError(db_, Moment::Statement));
  }
}

int Connection::execute(const Statement& statement) {
  if (undone_) throw *undone_;
  sqlite3_stmt* const prepared = prepare(statement).statement;
  if (sqlite3_column_count(prepared) > 0)
    throw Errore{errors::kNotExecutable, QStringLiteral("Impossibile eseguire una query di selezione.")};
  writeByJournal();
  catchUp();
  const StatementReset reset(prepared);
  if (sqlite3_step(prepared) != SQLITE_DONE) failed(EngineError(db_, Moment::Statement));
  if (translation_->definition) {
    readSchema();
    return 0;
  }
  return sqlite3_changes(db_);
}

// An archive that another program has set to a log of its own stays so until it is written on: until then it
// may be none of ours.
void Connection::writeByJournal() {
  if (byJournal_ || inTransaction()) return;
  command("PRAGMA journal_mode = TRUNCATE");
  byJournal_ = true;
}

void Connection::settleJournal() {
  bool foreign = false;
  const auto look = [](void* found, int, char** value, char**) {
    *static_cast<bool*>(found) = EqualCaseless(value[0], "wal");
    return 0;
  };
  if (sqlite3_exec(db_, "PRAGMA journal_mode", look, &foreign, nullptr) != SQLITE_OK)
    throw EngineError(db_, Moment::Opening);
  if (!foreign) writeByJournal();
}

void Connection::checkIntegrity() {
  beginTime();
  std::string finding = "ok";
  const auto look = [](void* found, int, char** value, char**) {
    *static_cast<std::string*>(found) = value[0];
    return 0;
  };
  if (sqlite3_exec(db_, "PRAGMA quick_check(1)", look, &finding, nullptr) != SQLITE_OK) {
    // A file that is locked, or too large to be looked through in time, is not found damaged: the statements
    // behind tell what is the matter.
    const Errore error = EngineError(db_, Moment::Statement);
    if (error.numero == errors::kNotADatabase || error.numero == errors::kDiskError) throw error;
  }
  if (EqualCaseless(finding, "ok")) return;
  if (unreadable(finding)) throw DiskError();
  throw errors::notADatabase(path_);
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
  try {
    commitAll();
  } catch (const Errore&) {
    release();
    throw;
  }
  release();
}

void Connection::abandon() noexcept {
  release();
}

// After a failure of the disk the journal is left to the next opening, which may have to play it back.
void Connection::release() noexcept {
  if (!isOpen()) return;
  set(0);
  statements_.clear();
  undoIfOpen();
  if (!undone_ && byJournal_) RemoveJournal(db_);
  open_connections::remove(this);
  EngineCloser{}(std::exchange(db_, nullptr));
  undone_.reset();
}

}  // namespace store
