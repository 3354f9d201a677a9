#include "platform/store/date_time.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

namespace store {

namespace {

constexpr int kCentury = 2000;
constexpr char kTimeSeparator = '.';

bool digit(char c) {
  return c >= '0' && c <= '9';
}

/// Reads whole numbers off the front of a text.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : rest_(text) {}

  std::optional<int> number(std::size_t max) {
    std::size_t digits = 0;
    while (digits < rest_.size() && digits < max && digit(rest_[digits])) ++digits;
    if (digits == 0) return std::nullopt;
    int value = 0;
    std::from_chars(rest_.data(), rest_.data() + digits, value);
    rest_.remove_prefix(digits);
    read_ = digits;
    return value;
  }
  bool skip(std::string_view allowed) {
    if (rest_.empty() || allowed.find(rest_.front()) == std::string_view::npos) return false;
    rest_.remove_prefix(1);
    return true;
  }
  void skipBlanks() {
    while (skip(" ")) {
    }
  }
  bool finished() const { return rest_.empty(); }
  std::size_t read() const { return read_; }

 private:
  std::string_view rest_;
  std::size_t read_ = 0;
};

bool leap(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int daysOfMonth(int year, int month) {
  static constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && leap(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

bool exists(const DateTime& m) {
  if (m.year < 100 || m.year > 9999 || m.month < 1 || m.month > 12) return false;
  if (m.day < 1 || m.day > daysOfMonth(m.year, m.month)) return false;
  return m.hour < 24 && m.minute < 60 && m.second < 60;
}

bool readDate(Cursor& cursor, DateTime& moment) {
  const auto first = cursor.number(4);
  if (!first) return false;
  const bool yearFirst = cursor.read() == 4;
  const std::string_view separator = yearFirst ? "-" : "/-";
  if (!cursor.skip(separator)) return false;
  const auto month = cursor.number(2);
  if (!month || !cursor.skip(separator)) return false;
  const auto last = cursor.number(4);
  if (!last) return false;
  moment.month = *month;
  moment.day = yearFirst ? *last : *first;
  moment.year = yearFirst ? *first : *last;
  if (!yearFirst && cursor.read() <= 2) moment.year += kCentury;
  return true;
}

bool readTime(Cursor& cursor, DateTime& moment) {
  const auto hour = cursor.number(2);
  if (!hour || !cursor.skip(":.")) return false;
  const auto minute = cursor.number(2);
  if (!minute) return false;
  moment.hour = *hour;
  moment.minute = *minute;
  if (!cursor.skip(":.")) return true;
  const auto second = cursor.number(2);
  if (!second) return false;
  moment.second = *second;
  return true;
}

void add(std::string& text, int value, std::size_t digits) {
  const std::string number = std::to_string(value);
  if (number.size() < digits) text.append(digits - number.size(), '0');
  text += number;
}

char toLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace

std::optional<DateTime> ReadDateTime(std::string_view text) {
  Cursor cursor(text);
  DateTime moment;
  cursor.skipBlanks();
  if (!readDate(cursor, moment)) return std::nullopt;
  cursor.skipBlanks();
  if (!cursor.finished() && !readTime(cursor, moment)) return std::nullopt;
  cursor.skipBlanks();
  if (!cursor.finished() || !exists(moment)) return std::nullopt;
  return moment;
}

std::string SortableForm(const DateTime& m) {
  // Digit by digit: a reception asks for the day of every row.
  std::string text = "0000-00-00 00:00:00";
  const auto put = [&text](std::size_t at, std::size_t width, int value) {
    for (; width > 0; --width, value /= 10) text[at + width - 1] = static_cast<char>('0' + value % 10);
  };
  put(0, 4, m.year);
  put(5, 2, m.month);
  put(8, 2, m.day);
  put(11, 2, m.hour);
  put(14, 2, m.minute);
  put(17, 2, m.second);
  return text;
}

std::string ItalianForm(const DateTime& m) {
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%02d/%02d/%04d %02d:%02d:%02d", m.day, m.month, m.year, m.hour,
                m.minute, m.second);
  return text.data();
}

std::string FormatDateTime(const DateTime& m, std::string_view mask) {
  std::string text;
  bool afterHours = false;
  for (std::size_t i = 0; i < mask.size();) {
    const char symbol = toLower(mask[i]);
    std::size_t end = i + 1;
    while (end < mask.size() && toLower(mask[end]) == symbol) ++end;
    const std::size_t digits = end - i;
    switch (symbol) {
      case 'd':
        add(text, m.day, digits);
        break;
      case 'm':
        add(text, afterHours ? m.minute : m.month, digits);
        break;
      case 'y':
        add(text, digits <= 2 ? m.year % 100 : m.year, digits <= 2 ? 2 : 4);
        break;
      case 'h':
        add(text, m.hour, digits);
        break;
      case 'n':
        add(text, m.minute, digits);
        break;
      case 's':
        add(text, m.second, digits);
        break;
      case ':':
        text.append(digits, kTimeSeparator);
        break;
      default:
        text.append(mask.substr(i, digits));
        break;
    }
    if (symbol == 'h') afterHours = true;
    if (symbol == 'd' || symbol == 'y' || symbol == 's') afterHours = false;
    i = end;
  }
  return text;
}

}  // namespace store
