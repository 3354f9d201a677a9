#pragma once

#include <QString>
#include <cstdint>
#include <variant>

namespace store {

/// One field of a record in its native type. Reading a null as text, number or flag throws Errore 94, a text
/// that is no number throws 13, a number out of range throws 6.
class Valore {
 public:
  Valore() = default;
  explicit Valore(std::int64_t valore) : valore_(valore) {}
  explicit Valore(double valore) : valore_(valore) {}
  explicit Valore(QString valore) : valore_(std::move(valore)) {}

  bool nullo() const { return std::holds_alternative<std::monostate>(valore_); }
  /// Text form: whole numbers without decimals, dates as `dd/mm/yyyy hh:mm:ss`.
  QString testo() const;
  std::int16_t intero16() const;
  std::int32_t intero() const;
  std::int64_t intero64() const;
  double doppio() const;
  bool booleano() const;

 private:
  std::variant<std::monostate, std::int64_t, double, QString> valore_;
};

}  // namespace store
