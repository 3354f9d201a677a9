#include "platform/store/clock.h"

#include <ctime>
#include <utility>

namespace store {

namespace {
Clock& current() {
  static Clock clock;
  return clock;
}
}  // namespace

void SetClock(Clock clock) {
  current() = std::move(clock);
}

QDate LocalToday() {
  if (current()) return current()().date();
  static std::time_t second = -1;
  static QDate data;
  const std::time_t hour = std::time(nullptr);
  if (hour != second) {
    data = QDate::currentDate();
    second = hour;
  }
  return data;
}

}  // namespace store
