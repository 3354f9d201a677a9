#pragma once

#include "platform/clock.h"

/// A clock that stands still until a test moves it.
class FixedClock : public Clock {
 public:
  explicit FixedClock(const QDateTime& now = QDateTime(QDate(2024, 3, 7), QTime(9, 5, 1))) : now_(now) {}
  QDateTime now() const override { return now_; }
  void set(const QDateTime& now) { now_ = now; }

 private:
  QDateTime now_;
};
