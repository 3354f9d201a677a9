#include "demo/play_clock.h"

void PlayClock::put(const QDateTime& moment) {
  moment_ = moment;
  since_.start();
}

QDateTime PlayClock::now() const {
  return since_.isValid() ? moment_.addMSecs(since_.elapsed()) : moment_;
}
