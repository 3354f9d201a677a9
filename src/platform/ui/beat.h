#pragma once

#include <chrono>

/// The beat of event passes inside a loop over thousands of records. A pass costs as much as a record's own
/// work even with nothing waiting, and nobody at the screen can tell a millisecond.
class Beat {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kBeat{1};

  /// True at the first call, and again when a beat has gone by since the last true.
  bool due(Clock::time_point now = Clock::now()) {
    if (begun_ && now - last_ < kBeat) return false;
    begun_ = true;
    last_ = now;
    return true;
  }

 private:
  bool begun_ = false;
  Clock::time_point last_{};
};
