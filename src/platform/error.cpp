#include "platform/error.h"

#include <QDir>
#include <QFileInfo>
#include <cerrno>

namespace errors {

namespace {

QString about(const QString& text, const QString& path) {
  return path.isEmpty() ? text : text + QStringLiteral(": ") + QDir::toNativeSeparators(path);
}

}  // namespace

Errore badArgument() {
  return {kBadArgument, QStringLiteral("Chiamata di routine o argomento non validi")};
}

Errore overflow() {
  return {kOverflow, QStringLiteral("Overflow")};
}

Errore outOfRange() {
  return {kOutOfRange, QStringLiteral("Indice non incluso nell'intervallo")};
}

Errore divisionByZero() {
  return {kDivisionByZero, QStringLiteral("Divisione per zero")};
}

Errore typeMismatch() {
  return {kTypeMismatch, QStringLiteral("Tipo non corrispondente")};
}

Errore nullValue() {
  return {kNullValue, QStringLiteral("Utilizzo non valido di Null")};
}

Errore memoryExhausted() {
  return {kMemoryExhausted, QStringLiteral("Memoria esaurita")};
}

Errore fileMissing(const QString& path) {
  return {kFileMissing, about(QStringLiteral("File non trovato"), path)};
}

Errore diskFull(const QString& path) {
  return {kDiskFull, about(QStringLiteral("Disco pieno"), path)};
}

Errore pastEnd(const QString& path) {
  return {kPastEnd, about(QStringLiteral("Lettura oltre la fine del file"), path)};
}

Errore accessDenied(const QString& path) {
  return {kAccessDenied, about(QStringLiteral("Accesso negato"), path)};
}

Errore pathAccess(const QString& path) {
  return {kPathAccess, about(QStringLiteral("Errore di accesso al percorso o al file"), path)};
}

Errore pathMissing(const QString& path) {
  return {kPathMissing, about(QStringLiteral("Percorso non trovato"), path)};
}

Errore notADatabase(const QString& path) {
  return {kNotADatabase, about(QStringLiteral("Formato di database non riconosciuto"), path)};
}

Errore cannotOpen(const QString& path) {
  return QFileInfo(path).absoluteDir().exists() ? pathAccess(path) : pathMissing(path);
}

Errore fromErrno(int number, const QString& path) {
  switch (number) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return diskFull(path);
    case ENOENT:
    case ENOTDIR:
      return pathMissing(path);
    case ETXTBSY:
    case EBUSY:
      return accessDenied(path);
    default:
      return pathAccess(path);
  }
}

}  // namespace errors
