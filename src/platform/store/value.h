#pragma once

#include <QString>
#include <cstdint>
#include <variant>

namespace store {

/// One field of a record in its native type. Reading a null as text, number or flag throws Errore 94, a text
/// that is no number throws 13, a number out of range throws 6.
class Value {
 public:
  Value() = default;
  explicit Value(std::int64_t value) : value_(value) {}
  explicit Value(double value) : value_(value) {}
  explicit Value(QString value) : value_(std::move(value)) {}

  bool isNull() const { return std::holds_alternative<std::monostate>(value_); }
  /// Text form: whole numbers without decimals, dates as `dd/mm/yyyy hh:mm:ss`.
  QString text() const;
  std::int16_t int16() const;
  std::int32_t int32() const;
  std::int64_t int64() const;
  double real() const;
  bool boolean() const;

 private:
  std::variant<std::monostate, std::int64_t, double, QString> value_;
};

}  // namespace store
