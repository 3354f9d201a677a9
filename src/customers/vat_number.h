#pragma once

#include <QString>
#include <cstdint>

namespace customers {

/// Digits of an Italian VAT number.
inline constexpr int kCifrePartitaIVA = 11;

/// 0 for an acceptable VAT number, 1 for a refused one. Longer texts lose their first two characters, the
/// country's; shorter ones are filled up with zeros at the left; eleven zeros, and so an empty text, stand
/// for the absent number and are accepted. The office code, digits 8 to 10, ends at 121; the last digit is
/// the check digit of the others. A character that is no digit counts as 0.
std::int16_t CheckPartitaIVA(const QString& testo);

}  // namespace customers
