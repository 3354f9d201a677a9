#pragma once

#include <QDateTime>

/// The one clock, handed over to who needs the hour: local time.
class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  virtual QDateTime now() const = 0;
  /// The day alone: what a loop over thousands of records may ask for at each.
  virtual QDate today() const { return now().date(); }
};

/// The computer's. Asks the system for the day once a second, since each asking looks at the time zone's
/// file.
const Clock& systemClock();
