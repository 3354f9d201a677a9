#include "ecrsim/moment.h"

#include <array>
#include <cstdio>
#include <ctime>

#include "ecrsim/money.h"

namespace ecrsim {
namespace {

constexpr std::array kDaysOfMonth{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr int kCentury = 2000;

bool within(std::int64_t value, int low, int high) {
  return value >= low && value <= high;
}

bool inCalendar(const Moment& moment) {
  if (!within(moment.year, kCentury, kCentury + 99) || !within(moment.month, 1, 12)) return false;
  if (!within(moment.day, 1, kDaysOfMonth[static_cast<std::size_t>(moment.month) - 1])) return false;
  return moment.month != 2 || moment.day != 29 || moment.year % 4 == 0;
}

int numberAt(std::string_view text, std::size_t start, std::size_t count) {
  return static_cast<int>(integerOf(text.substr(start, count), count).value_or(-1));
}

}  // namespace

Moment systemMoment() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

std::string longText(const Moment& moment) {
  std::array<char, 80> text;
  std::snprintf(text.data(), text.size(), "%02d/%02d/%04d %02d:%02d:%02d", moment.day, moment.month,
                moment.year, moment.hour, moment.minute, moment.second);
  return text.data();
}

std::optional<Moment> momentOf(std::string_view text) {
  constexpr std::size_t kLength = 19;
  if (text.size() != kLength) return std::nullopt;
  const Moment moment{numberAt(text, 6, 4),  numberAt(text, 3, 2),  numberAt(text, 0, 2),
                      numberAt(text, 11, 2), numberAt(text, 14, 2), numberAt(text, 17, 2)};
  const bool time =
      within(moment.hour, 0, 23) && within(moment.minute, 0, 59) && within(moment.second, 0, 59);
  if (!time || !inCalendar(moment) || longText(moment) != text) return std::nullopt;
  return moment;
}

int dayNumber(const Moment& moment) {
  return (moment.year % 100 * 100 + moment.month) * 100 + moment.day;
}

std::optional<int> dayNumberOf(std::string_view text) {
  constexpr std::size_t kLength = 6;
  if (text.size() != kLength) return std::nullopt;
  Moment moment;
  moment.year = kCentury + numberAt(text, 0, 2);
  moment.month = numberAt(text, 2, 2);
  moment.day = numberAt(text, 4, 2);
  if (!inCalendar(moment)) return std::nullopt;
  return dayNumber(moment);
}

}  // namespace ecrsim
