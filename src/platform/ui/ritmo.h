#pragma once

#include <chrono>

/// The beat of event passes inside a loop over thousands of records. A pass costs as much as a record's own
/// work even with nothing waiting, and nobody at the screen can tell a millisecond.
class Ritmo {
 public:
  using Orologio = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kBattuta{1};

  /// True at the first call, and again when a beat has gone by since the last true.
  bool tocca(Orologio::time_point adesso = Orologio::now()) {
    if (iniziato_ && adesso - ultima_ < kBattuta) return false;
    iniziato_ = true;
    ultima_ = adesso;
    return true;
  }

 private:
  bool iniziato_ = false;
  Orologio::time_point ultima_{};
};
