#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Money as a till counts it.
namespace ecrsim {

/// Hundredths.
using Cents = std::int64_t;

/// The most that one amount may be: as many nines as the keypad takes digits.
inline constexpr Cents kMaxAmount = 999999999;
/// A quantity of one, in thousandths.
inline constexpr std::int64_t kOnePiece = 1000;
/// A whole in hundredths of a per cent.
inline constexpr std::int64_t kWholePercent = 10000;

/// value * part / whole, half up in magnitude, so that a refund mirrors its sale. `whole` is above 0.
Cents proportion(Cents value, std::int64_t part, std::int64_t whole);
/// The tax within an amount, at a rate in hundredths of a per cent.
Cents taxWithin(Cents amount, std::int64_t rate);
/// "-1234,50".
std::string euro(Cents cents);
/// "10,25" of 1025.
std::string percentage(std::int64_t hundredths);
/// "4,5" of 4500, "10" of 10000.
std::string quantity(std::int64_t thousandths);

/// Digits with at most one comma and `places` digits behind it, as a number of 10^-places; nothing for
/// another text, for none, and for one of more than `digits` digits.
std::optional<std::int64_t> decimals(std::string_view text, std::size_t places, std::size_t digits);
/// An amount: hundredths, or with a comma as it is written.
std::optional<Cents> amountOf(std::string_view text);
/// Digits alone, `digits` of them at most.
std::optional<std::int64_t> integerOf(std::string_view text, std::size_t digits);

}  // namespace ecrsim
