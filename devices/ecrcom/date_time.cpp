#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "platform/ecrcom/ecrcom.h"

// A moment of the till is one number in mixed radix, most significant first: year 0..99, month 0..12, day
// 0..31, hours 0..23, minutes 0..59, seconds 0..59. Fields of whole bits would take 33 of them.
namespace {

constexpr std::uint32_t kYears = 100;
constexpr std::uint32_t kMonths = 13;
constexpr std::uint32_t kDays = 32;
constexpr std::uint32_t kHours = 24;
constexpr std::uint32_t kSixty = 60;
constexpr std::uint64_t kMoments = std::uint64_t{kYears} * kMonths * kDays * kHours * kSixty * kSixty;
static_assert(kMoments <= UINT32_MAX);

constexpr std::size_t kTextBytes = 18;
constexpr std::array<std::int32_t, 12> kDaysOfMonth{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::int32_t kFebruary = 2;

bool within(std::int32_t value, std::int32_t min, std::int32_t max) {
  return value >= min && value <= max;
}

bool dayOfMonth(std::int32_t day, std::int32_t month) {
  return within(month, 1, 12) && within(day, 1, kDaysOfMonth[static_cast<std::size_t>(month) - 1]);
}

/// The two-digit year stands for 2000 to 2099, where every fourth one is a leap year.
bool leap(std::int32_t year) {
  return year % 4 == 0;
}

std::uint32_t dateNumber(std::int32_t day, std::int32_t month, std::int32_t year) {
  const std::int32_t days =
      (year * static_cast<std::int32_t>(kMonths) + month) * static_cast<std::int32_t>(kDays);
  return static_cast<std::uint32_t>(days + day) * kHours * kSixty * kSixty;
}

/// Takes the least significant digit off.
unsigned detach(std::uint32_t& value, std::uint32_t base) {
  const unsigned digit = value % base;
  value /= base;
  return digit;
}

}  // namespace

uint32_t ecr_date_decode(int32_t day, int32_t month, int32_t year) {
  if (!dayOfMonth(day, month) || !within(year, 0, 99)) return 0;
  if (month == kFebruary && day == 29 && !leap(year)) return 0;
  return dateNumber(day, month, year);
}

uint32_t ecr_dates_decode(int32_t day, int32_t month) {
  return dayOfMonth(day, month) ? dateNumber(day, month, 0) : 0;
}

uint32_t ecr_time_decode(int32_t hours, int32_t minutes, int32_t seconds) {
  if (!within(hours, 0, 23) || !within(minutes, 0, 59) || !within(seconds, 0, 59)) return 0;
  return static_cast<uint32_t>((hours * 60 + minutes) * 60 + seconds);
}

void ecr_oro_encode(uint32_t value, char* text) {
  if (text == nullptr) return;
  std::uint32_t rest = value < kMoments ? value : 0;
  const unsigned seconds = detach(rest, kSixty);
  const unsigned minutes = detach(rest, kSixty);
  const unsigned hours = detach(rest, kHours);
  const unsigned day = detach(rest, kDays);
  const unsigned month = detach(rest, kMonths);
  const unsigned year = rest % kYears;
  std::snprintf(text, kTextBytes, "%02u/%02u/%02u %02u:%02u:%02u", day, month, year, hours, minutes, seconds);
}
