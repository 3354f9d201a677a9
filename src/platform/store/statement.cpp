#include "platform/store/statement.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace store {

namespace {

/// Digits of a number in a statement: enough for every price, and 19.99 times 100 is 1999 with them.
constexpr int kDigits = 15;
constexpr double kFirstBeyondDigits = 1e15;
/// Of a 64-bit integer with its sign.
constexpr std::size_t kLongestInteger = std::numeric_limits<std::int64_t>::digits10 + 2;
/// Of most statements, in characters: a reception puts thousands together, piece by piece.
constexpr qsizetype kUsualLength = 400;

bool digit(QChar c) {
  return c >= u'0' && c <= u'9';
}

bool blank(QChar c) {
  return c == u' ' || c == u'\t';
}

/// Where the run of apostrophes ends that closes the literal around `value`; nothing if none does.
std::optional<qsizetype> closingApostrophe(QStringView value) {
  for (qsizetype at = value.indexOf(u'\''); at >= 0; at = value.indexOf(u'\'', at)) {
    const qsizetype begin = at;
    while (at < value.size() && value[at] == u'\'') ++at;
    if ((at - begin) % 2 != 0) return at;
  }
  return std::nullopt;
}

/// Takes what `fits` off the front; false if nothing did.
template <typename Fits>
bool take(QStringView& rest, Fits fits) {
  qsizetype count = 0;
  while (count < rest.size() && fits(rest[count])) ++count;
  rest = rest.sliced(count);
  return count > 0;
}

bool takeSign(QStringView& rest) {
  if (rest.startsWith(u'-') || rest.startsWith(u'+')) rest = rest.sliced(1);
  return true;
}

bool takeExponent(QStringView& rest) {
  if (!rest.startsWith(u'e') && !rest.startsWith(u'E')) return true;
  rest = rest.sliced(1);
  return takeSign(rest) && take(rest, digit);
}

bool plainNumber(QStringView rest) {
  take(rest, blank);
  takeSign(rest);
  const bool whole = take(rest, digit);
  bool fraction = false;
  if (rest.startsWith(u'.')) {
    rest = rest.sliced(1);
    fraction = take(rest, digit);
  }
  if ((!whole && !fraction) || !takeExponent(rest)) return false;
  take(rest, blank);
  return rest.isEmpty();
}

/// Where a number breaks the statement: at its first sign, or nowhere.
std::optional<qsizetype> breakUnless(bool sound) {
  return sound ? std::nullopt : std::optional<qsizetype>(0);
}

}  // namespace

StatementValue text(const QString& value) {
  return {StatementValue::Kind::Text, value, closingApostrophe(value)};
}

StatementValue number(std::int64_t value) {
  return StatementValue(value);
}

StatementValue number(double value) {
  // Whole numbers, EANs foremost, have exact digits without the long way of a fraction.
  if (std::abs(value) < kFirstBeyondDigits && std::nearbyint(value) == value)
    return number(static_cast<std::int64_t>(value));
  return {StatementValue::Kind::Number, QString::number(value, 'g', kDigits),
          breakUnless(std::isfinite(value))};
}

StatementValue number(const QString& written) {
  return {StatementValue::Kind::Number, written, breakUnless(plainNumber(written))};
}

StatementValue rowId(const QString& written) {
  QStringView rest = written;
  const bool digits = take(rest, digit) && rest.isEmpty();
  return {StatementValue::Kind::Number, written, breakUnless(digits)};
}

StatementValue flag(bool value) {
  return {StatementValue::Kind::Flag, value ? QStringLiteral("true") : QStringLiteral("false")};
}

QString StatementValue::text() const {
  QString alone;
  appendTo(alone);
  return alone;
}

void StatementValue::appendTo(QString& sql) const {
  if (kind_ != Kind::Integer) {
    sql += text_;
    return;
  }
  std::array<char, kLongestInteger> digits;
  const char* const end = std::to_chars(digits.begin(), digits.end(), integer_).ptr;
  sql += QLatin1String(digits.data(), end - digits.data());
}

Statement::Statement(Wording wording) {
  sql_.reserve(kUsualLength);
  *this += wording;
}

Statement Statement::AsWritten(const QString& sql) {
  Statement statement;
  statement.sql_ = sql;
  statement.inText_ = sql.count(u'\'') % 2 != 0;
  return statement;
}

Statement& Statement::operator+=(Wording wording) {
  sql_ += wording.view();
  inText_ = inText_ != wording.turns();
  return *this;
}

Statement& Statement::operator+=(const StatementValue& value) {
  const auto breaksAt = value.isText() && !inText_ ? 0 : value.breaksAt();
  if (breaksAt && !broken_) broken_ = Break{sql_.size() + *breaksAt, value.isNumber()};
  value.appendTo(sql_);
  return *this;
}

Statement& Statement::operator+=(const Statement& other) {
  if (other.broken_ && !broken_) broken_ = Break{sql_.size() + other.broken_->at, other.broken_->number};
  sql_ += other.sql_;
  inText_ = inText_ != other.inText_;
  return *this;
}

Statement operator+(Wording left, const StatementValue& right) {
  Statement statement(left);
  statement += right;
  return statement;
}

Statement operator+(Statement left, Wording right) {
  left += right;
  return left;
}

Statement operator+(Statement left, const StatementValue& right) {
  left += right;
  return left;
}

Statement operator+(Statement left, const Statement& right) {
  left += right;
  return left;
}

Statement beginsWith(Wording left, const QString& value) {
  return left + text(value) + u"*'";
}

}  // namespace store
