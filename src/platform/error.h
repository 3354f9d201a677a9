#pragma once

#include <QString>

/// A failure of the platform, the store or a conversion: the one type that low layers throw.
/// `numero` is one of the numbers below, `descrizione` the Italian text that reaches the user.
struct Errore {
  int numero = 0;
  QString descrizione;
};

namespace errors {

// Conversions.
inline constexpr int kBadArgument = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfRange = 9;
inline constexpr int kDivisionByZero = 11;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kInternal = 51;
inline constexpr int kNullValue = 94;

// Files.
inline constexpr int kFileMissing = 53;
inline constexpr int kFileOpen = 55;
inline constexpr int kDiskFull = 61;
inline constexpr int kPastEnd = 62;
inline constexpr int kAccessDenied = 70;
inline constexpr int kPathAccess = 75;
inline constexpr int kPathMissing = 76;
inline constexpr int kFileFormat = 321;

// Serial line.
inline constexpr int kPortMissing = 8002;
inline constexpr int kPortBusy = 8005;
inline constexpr int kPortSettings = 8015;
inline constexpr int kPortClosed = 8018;
inline constexpr int kPortBroken = 8020;

// Foreign libraries.
inline constexpr int kEntryPointMissing = 453;

// Store.
inline constexpr int kMemoryExhausted = 7;
inline constexpr int kNoCurrentRecord = 3021;
inline constexpr int kDuplicateKey = 3022;
inline constexpr int kArchiveMissing = 3024;
inline constexpr int kNoTransaction = 3034;
inline constexpr int kDiskError = 3043;
inline constexpr int kTooLong = 3059;  ///< a statement that was ended since it ran beyond every bound
inline constexpr int kMissingParameter = 3061;
inline constexpr int kNotExecutable = 3065;  ///< a query that returns rows handed to Execute
inline constexpr int kReadOnly = 3073;
inline constexpr int kSyntax = 3075;
inline constexpr int kTableMissing = 3078;
inline constexpr int kAmbiguousField = 3079;
inline constexpr int kUnknownFunction = 3085;
inline constexpr int kTextPastEnd = 3142;
inline constexpr int kTextTooLong = 3163;
inline constexpr int kRelatedRecords = 3200;
inline constexpr int kNoRows = 3219;  ///< a statement that returns no rows opened as a record set
inline constexpr int kLocked = 3260;
inline constexpr int kNoSuchField = 3265;
inline constexpr int kValueRequired = 3314;
inline constexpr int kRuleViolated = 3317;
inline constexpr int kNotADatabase = 3343;
inline constexpr int kValueCount = 3346;  ///< as many values as columns were expected
inline constexpr int kHandleClosed = 3420;
inline constexpr int kConversionFailed = 3421;
inline constexpr int kCriteriaMismatch = 3464;  ///< a text where a statement wants a number

// The failures that many places meet: one wording each.
Errore badArgument();
Errore overflow();
Errore outOfRange();
Errore divisionByZero();
Errore typeMismatch();
Errore nullValue();
Errore memoryExhausted();

// The same for files. A path, where there is one, stands behind the text with the platform's separators.
Errore fileMissing(const QString& path = {});
Errore diskFull(const QString& path = {});
Errore pastEnd(const QString& path = {});
Errore accessDenied(const QString& path = {});
Errore pathAccess(const QString& path = {});
Errore pathMissing(const QString& path = {});
Errore notADatabase(const QString& path = {});
/// Of a file that could not be opened to write: 76 where its folder is missing, else 75.
Errore cannotOpen(const QString& path);
/// Errore of a failed system call by its `errno`: 61, 70 or 76, and 75 for all that has no number of its own.
Errore fromErrno(int number, const QString& path);

}  // namespace errors
