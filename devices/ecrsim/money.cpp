#include "ecrsim/money.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace ecrsim {
namespace {

constexpr std::size_t kAmountDigits = 9;
constexpr std::size_t kCentPlaces = 2;

std::string fixed(std::int64_t value) {
  std::array<char, 32> text;
  const std::int64_t absolute = value < 0 ? -value : value;
  std::snprintf(text.data(), text.size(), "%s%lld,%02lld", value < 0 ? "-" : "",
                static_cast<long long>(absolute / 100), static_cast<long long>(absolute % 100));
  return text.data();
}

bool digit(char character) {
  return character >= '0' && character <= '9';
}

}  // namespace

Cents proportion(Cents value, std::int64_t part, std::int64_t whole) {
  const std::int64_t product = value * part;
  const std::int64_t absolute = product < 0 ? -product : product;
  const std::int64_t rounded = (absolute + whole / 2) / whole;
  return product < 0 ? -rounded : rounded;
}

Cents taxWithin(Cents amount, std::int64_t rate) {
  return proportion(amount, rate, kWholePercent + rate);
}

std::string euro(Cents cents) {
  return fixed(cents);
}

std::string percentage(std::int64_t hundredths) {
  return fixed(hundredths);
}

std::string quantity(std::int64_t thousandths) {
  std::string text = std::to_string(thousandths / kOnePiece);
  if (thousandths % kOnePiece == 0) return text;
  std::string behind = std::to_string(kOnePiece + thousandths % kOnePiece).substr(1);
  behind.erase(behind.find_last_not_of('0') + 1);
  return text + "," + behind;
}

std::optional<std::int64_t> decimals(std::string_view text, std::size_t places, std::size_t digits) {
  const std::size_t comma = std::min(text.find(','), text.size());
  const std::string_view whole = text.substr(0, comma);
  const std::string_view behind = comma == text.size() ? std::string_view() : text.substr(comma + 1);
  if (whole.empty() || behind.size() > places || whole.size() + places > digits) return std::nullopt;
  if (comma < text.size() && behind.empty()) return std::nullopt;
  if (!std::all_of(whole.begin(), whole.end(), digit) || !std::all_of(behind.begin(), behind.end(), digit))
    return std::nullopt;
  std::int64_t value = 0;
  for (const char one : whole) value = value * 10 + (one - '0');
  for (std::size_t i = 0; i < places; ++i) value = value * 10 + (i < behind.size() ? behind[i] - '0' : 0);
  return value;
}

std::optional<Cents> amountOf(std::string_view text) {
  if (text.find(',') == std::string_view::npos) return integerOf(text, kAmountDigits);
  return decimals(text, kCentPlaces, kAmountDigits);
}

std::optional<std::int64_t> integerOf(std::string_view text, std::size_t digits) {
  return text.find(',') == std::string_view::npos ? decimals(text, 0, digits) : std::nullopt;
}

}  // namespace ecrsim
