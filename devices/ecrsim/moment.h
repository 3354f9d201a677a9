#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace ecrsim {

/// A date and a time of day as the till's clock shows them.
struct Moment {
  int year = 2000;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
  bool operator==(const Moment&) const = default;
};

using TillClock = std::function<Moment()>;

/// The PC's own clock.
Moment systemMoment();
/// "22/11/2026 10:15:33", 19 characters.
std::string longText(const Moment& moment);
/// What longText() wrote; nothing for another text.
std::optional<Moment> momentOf(std::string_view text);
/// Year (two digits), month and day as one number, the order of which is the calendar's.
int dayNumber(const Moment& moment);
/// The same of six digits YYMMDD; nothing for what is no date.
std::optional<int> dayNumberOf(std::string_view text);

}  // namespace ecrsim
