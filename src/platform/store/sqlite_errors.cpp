#include "platform/store/sqlite_errors.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>

#include "platform/store/lexer.h"

namespace store {

namespace {

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// What follows the last ": " of the engine's message: the name it stumbled over.
QString nameInMessage(std::string_view message) {
  const std::size_t colon = message.rfind(": ");
  return text(colon == std::string_view::npos ? message : message.substr(colon + 2));
}

bool startsWith(std::string_view message, std::string_view with) {
  return message.substr(0, with.size()) == with;
}
bool contains(std::string_view message, std::string_view what) {
  return message.find(what) != std::string_view::npos;
}

/// The name of a column stands behind the kind of its rule: "lungo_Descrizione", "numero_Prezzo".
QString columnOfRule(const QString& rule) {
  return rule.section(QLatin1Char('_'), 1);
}

Errore ruleViolated(std::string_view message) {
  const QString rule = nameInMessage(message);
  if (rule.startsWith(QStringLiteral("lungo_")))
    return {errors::kTextTooLong,
            QStringLiteral("Il testo è troppo lungo per il campo '%1'.").arg(columnOfRule(rule))};
  if (rule.startsWith(QStringLiteral("numero_")))
    return {errors::kConversionFailed,
            QStringLiteral("Errore di conversione del tipo di dati nel campo '%1'.").arg(columnOfRule(rule))};
  return {errors::kRuleViolated, QStringLiteral("Il valore viola la regola di convalida '%1'.").arg(rule)};
}

Errore conversionError() {
  return {errors::kConversionFailed, QStringLiteral("Errore di conversione del tipo di dati.")};
}

/// The engine tells no more than "FOREIGN KEY constraint failed", for a row that others lean on and for one
/// that leans on none alike; the first is the one that callers can run into.
Errore constraint(int extended, std::string_view message) {
  switch (extended) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {errors::kDuplicateKey,
              QStringLiteral("Valore duplicato nell'indice o nella chiave primaria: '%1'.")
                  .arg(nameInMessage(message))};
    case SQLITE_CONSTRAINT_CHECK:
      return ruleViolated(message);
    case SQLITE_CONSTRAINT_NOTNULL:
      return {errors::kValueRequired,
              QStringLiteral("Il campo '%1' richiede un valore.").arg(nameInMessage(message))};
    case SQLITE_CONSTRAINT_FOREIGNKEY:
      return {errors::kRelatedRecords,
              QStringLiteral("Impossibile eliminare o modificare il record: esistono record collegati.")};
    case SQLITE_CONSTRAINT_DATATYPE:
      return conversionError();
    default:
      return {errors::kRuleViolated, text(message)};
  }
}

bool meansFull(int errno_) {
  return errno_ == ENOSPC || errno_ == EFBIG || errno_ == EDQUOT;
}

/// Why the last operation on a file of the engine's failed; 0 where nothing is known.
int lastErrno(sqlite3* db, int whichFile) {
  sqlite3_file* file = nullptr;
  int number = 0;
  if (sqlite3_file_control(db, "main", whichFile, &file) != SQLITE_OK) return 0;
  if (file == nullptr || file->pMethods == nullptr) return 0;
  file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &number);
  return number;
}

// The engine takes note of the system's error behind its own clearing up, which may have changed it: the
// files remember theirs.
bool diskIsFull(sqlite3* db, int extended) {
  if (meansFull(sqlite3_system_errno(db))) return true;
  if (extended != SQLITE_IOERR_WRITE && extended != SQLITE_IOERR_TRUNCATE && extended != SQLITE_IOERR_FSYNC)
    return false;
  return meansFull(lastErrno(db, SQLITE_FCNTL_FILE_POINTER)) ||
         meansFull(lastErrno(db, SQLITE_FCNTL_JOURNAL_POINTER));
}

Errore readOnlyError() {
  return {errors::kReadOnly, QStringLiteral("Operazione non consentita: il database è di sola lettura.")};
}

/// Failures that the message alone tells apart.
Errore genericError(std::string_view message) {
  if (contains(message, "no such table"))
    return {errors::kTableMissing,
            QStringLiteral("Impossibile trovare la tabella '%1'.").arg(nameInMessage(message))};
  if (contains(message, "no such column"))
    return {errors::kMissingParameter,
            QStringLiteral("Parametri insufficienti. Previsto 1: '%1'.").arg(nameInMessage(message))};
  if (contains(message, "has no column named"))
    return {errors::kMissingParameter, QStringLiteral("Parametri insufficienti. Previsto 1: '%1'.")
                                           .arg(text(message).section(QLatin1Char(' '), -1))};
  if (contains(message, "ambiguous column name"))
    return {errors::kAmbiguousField,
            QStringLiteral("Il campo '%1' può riferirsi a più tabelle.").arg(nameInMessage(message))};
  if (contains(message, "values for") || contains(message, "values were supplied"))
    return {errors::kValueCount, QStringLiteral("Il numero dei valori non corrisponde a quello dei campi.")};
  if (startsWith(message, "data non valida"))
    return {errors::kTypeMismatch, QStringLiteral("Tipo non corrispondente: %1").arg(text(message))};
  return {errors::kSyntax, QStringLiteral("Errore nell'espressione della query: %1").arg(text(message))};
}

std::size_t positionInSource(const Translation& translation, int inTranslated) {
  std::size_t position = 0;
  for (const Translation::Step& step : translation.map)
    if (static_cast<int>(step.inTranslated) <= inTranslated) position = step.inSource;
  return position;
}

}  // namespace

Errore EngineError(sqlite3* db, Moment moment) {
  const int extended = sqlite3_extended_errcode(db);
  const std::string_view message = sqlite3_errmsg(db);
  switch (extended & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {errors::kLocked, QStringLiteral("Il database è bloccato da un altro programma.")};
    case SQLITE_READONLY:
    // The journal cannot be made beside the file: the folder is read-only. A temporary file that can be made
    // in none of the system's folders nor in the current one looks the same.
    case SQLITE_CANTOPEN:
      return moment == Moment::Opening ? errors::pathAccess() : readOnlyError();
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return errors::pathAccess();
    case SQLITE_INTERRUPT:
      return {errors::kTooLong, QStringLiteral("Operazione interrotta: durava oltre ogni limite.")};
    case SQLITE_FULL:
      return errors::diskFull();
    case SQLITE_IOERR:
      if (diskIsFull(db, extended)) return errors::diskFull();
      return DiskError();
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return errors::notADatabase();
    case SQLITE_NOMEM:
      return errors::memoryExhausted();
    case SQLITE_TOOBIG:
      return {errors::kTextTooLong, QStringLiteral("Il testo è troppo lungo.")};
    case SQLITE_MISMATCH:
      return conversionError();
    case SQLITE_CONSTRAINT:
      return constraint(extended, message);
    default:
      return genericError(message);
  }
}

Errore DiskError() {
  return {errors::kDiskError, QStringLiteral("Errore di lettura o scrittura sul disco.")};
}

Errore PreparationError(sqlite3* db, std::string_view source, const Dictionary& dictionary) {
  const std::string_view message = sqlite3_errmsg(db);
  const int where = sqlite3_error_offset(db);
  if (contains(message, "incomplete input")) {
    return SyntaxError(QStringLiteral("istruzione incompleta"), source, 0);
  }
  if (!startsWith(message, "near ")) return EngineError(db, Moment::Statement);
  Translation withMap;
  withMap.withMap = true;
  Translate(source, dictionary, withMap);
  return SyntaxError(QStringLiteral("operatore mancante"), source, positionInSource(withMap, where));
}

}  // namespace store
