#pragma once

#include <QString>
#include <QStringView>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

namespace store {

/// The wording of a statement as it stands in the source: nothing that a person, a file or a till wrote can
/// become one.
class Wording {
 public:
  template <std::size_t N>
  consteval Wording(const char16_t (&literal)[N])
      : text_(literal), size_(N - 1), turns_(std::count(literal, literal + size_, u'\'') % 2 != 0) {}

  QStringView view() const { return {text_, static_cast<qsizetype>(size_)}; }
  /// Opens a literal between apostrophes that it does not close, or closes one that stood open.
  bool turns() const { return turns_; }

 private:
  const char16_t* text_;
  std::size_t size_;
  bool turns_;
};

/// A value on its way into a statement, as the wording is to hold it. Nothing but the helpers below makes
/// one.
class StatementValue {
 public:
  QString text() const;
  /// Where, in the text, the value stops being a value; nothing for one that stays within its place.
  std::optional<qsizetype> breaksAt() const { return breaksAt_; }
  bool isNumber() const { return kind_ == Kind::Number || kind_ == Kind::Integer; }
  /// Belongs between apostrophes.
  bool isText() const { return kind_ == Kind::Text; }

 private:
  enum class Kind : std::uint8_t { Text, Number, Integer, Flag };

  StatementValue(Kind kind, QString text, std::optional<qsizetype> breaksAt = std::nullopt)
      : text_(std::move(text)), breaksAt_(breaksAt), kind_(kind) {}
  explicit StatementValue(std::int64_t integer) : integer_(integer), kind_(Kind::Integer) {}

  void appendTo(QString& sql) const;

  QString text_;
  /// Instead of a text: the digits are written straight into the statement. A reception has thousands.
  std::int64_t integer_ = 0;
  std::optional<qsizetype> breaksAt_;
  Kind kind_;

  friend class Statement;
  friend StatementValue text(const QString& value);
  friend StatementValue number(std::int64_t value);
  friend StatementValue number(double value);
  friend StatementValue number(const QString& written);
  friend StatementValue rowId(const QString& written);
  friend StatementValue flag(bool value);
};

/// A text, between the apostrophes that the wording sets around it; elsewhere it breaks the statement.
/// Nothing is escaped, as the archives' statements have it: an even run of apostrophes stands for half as
/// many, and one that would end the literal breaks the statement.
StatementValue text(const QString& value);
/// A number that the program has computed.
StatementValue number(std::int64_t value);
StatementValue number(double value);
/// A number as a person or a file wrote it: digits with a sign, a decimal point and an exponent at most.
/// Anything else breaks the statement.
StatementValue number(const QString& written);
/// The identifier of a row as a screen or a file holds it: digits. Anything else breaks the statement.
StatementValue rowId(const QString& written);
/// `true` or `false`.
StatementValue flag(bool value);

/// A statement of the callers' dialect, put together from wording and values. The one way into
/// `Database::Execute` and `OpenRecordset`: a raw text cannot be joined to it.
///
/// A broken one is not run. It fails as it would have failed: 3075 with the message of its syntax, 3464 where
/// a text stands in the place of a number.
class Statement {
 public:
  Statement() = default;
  Statement(Wording wording);

  /// A whole text taken as it is. For tests and for tools that write templates; a check keeps it out of the
  /// program.
  static Statement AsWritten(const QString& sql);

  Statement& operator+=(Wording wording);
  Statement& operator+=(const StatementValue& value);
  Statement& operator+=(const Statement& other);

  bool empty() const { return sql_.isEmpty(); }
  const QString& sql() const { return sql_; }
  /// Of the first value that breaks it: where it does, and whether a number was wanted there.
  struct Break {
    qsizetype at = 0;
    bool number = false;
  };
  const std::optional<Break>& broken() const { return broken_; }

 private:
  QString sql_;
  std::optional<Break> broken_;
  /// What comes next stands between apostrophes.
  bool inText_ = false;
};

Statement operator+(Wording left, const StatementValue& right);
Statement operator+(Statement left, Wording right);
Statement operator+(Statement left, const StatementValue& right);
Statement operator+(Statement left, const Statement& right);

/// The condition that a column begins with a text. `left` names it, up to the apostrophe: u" Citta like '".
Statement beginsWith(Wording left, const QString& value);

}  // namespace store
