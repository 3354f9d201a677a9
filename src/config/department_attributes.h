#pragma once

#include <QString>
#include <cstdint>

/// The packed byte of a department, as the columns of its screen read it.
namespace config {

struct AttributiReparto {
  /// VAT rate, 1 to 8.
  int iva = 1;
  /// "S" yes; anything else counts as no.
  QString battutaSingola = QStringLiteral("N");
  /// "S" single; anything else counts as "M".
  QString tipo = QStringLiteral("S");
  /// 1 to 8.
  int tallon = 1;

  bool operator==(const AttributiReparto&) const = default;
};

/// The sum of the four parts. Throws Errore 6 if it does not fit a byte.
std::uint8_t imballaAttributi(const AttributiReparto& attributi);
/// The letters come back as "S", "N" and "M".
AttributiReparto sballaAttributi(std::uint8_t byte);

}  // namespace config
