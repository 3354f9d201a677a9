#include "platform/store/value.h"

#include <cmath>
#include <limits>

#include "platform/error.h"

namespace store {

namespace {

/// Beyond it a double no longer tells neighbouring whole numbers apart.
constexpr double kExactIntegers = 9007199254740992.0;
constexpr double kLimit64 = 9223372036854775808.0;
constexpr int kSignificantDigits = 15;

double numberFromText(const QString& text) {
  bool succeeded = false;
  const double value = text.trimmed().toDouble(&succeeded);
  if (!succeeded || !std::isfinite(value)) throw errors::typeMismatch();
  return value;
}

/// Halves go to the even neighbour, as the conversions of the callers expect.
std::int64_t rounded(double value) {
  const double int32 = std::nearbyint(value);
  if (!(int32 >= -kLimit64 && int32 < kLimit64)) throw errors::overflow();
  return static_cast<std::int64_t>(int32);
}

template <typename Integer>
Integer narrowed(std::int64_t value) {
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
    throw errors::overflow();
  return static_cast<Integer>(value);
}

QString realText(double value) {
  if (std::abs(value) < kExactIntegers && std::nearbyint(value) == value)
    return QString::number(static_cast<std::int64_t>(value));
  return QString::number(value, 'g', kSignificantDigits);
}

}  // namespace

QString Value::text() const {
  if (isNull()) throw errors::nullValue();
  if (const auto* int32 = std::get_if<std::int64_t>(&value_)) return QString::number(*int32);
  if (const auto* real = std::get_if<double>(&value_)) return realText(*real);
  return std::get<QString>(value_);
}

std::int64_t Value::int64() const {
  if (isNull()) throw errors::nullValue();
  if (const auto* int32 = std::get_if<std::int64_t>(&value_)) return *int32;
  if (const auto* real = std::get_if<double>(&value_)) return rounded(*real);
  const QString& text = std::get<QString>(value_);
  bool succeeded = false;
  const std::int64_t exact = text.trimmed().toLongLong(&succeeded);
  return succeeded ? exact : rounded(numberFromText(text));
}

std::int32_t Value::int32() const {
  return narrowed<std::int32_t>(int64());
}

std::int16_t Value::int16() const {
  return narrowed<std::int16_t>(int64());
}

double Value::real() const {
  if (isNull()) throw errors::nullValue();
  if (const auto* int32 = std::get_if<std::int64_t>(&value_)) return static_cast<double>(*int32);
  if (const auto* real = std::get_if<double>(&value_)) return *real;
  return numberFromText(std::get<QString>(value_));
}

bool Value::boolean() const {
  return real() != 0.0;
}

}  // namespace store
