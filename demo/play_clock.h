#pragma once

#include <QElapsedTimer>

#include "platform/clock.h"

/// The PC's clock on the days of the play: it goes on from the moment that it was last put to.
class PlayClock : public Clock {
 public:
  void put(const QDateTime& moment);
  QDateTime now() const override;

 private:
  QDateTime moment_ = QDateTime::currentDateTime();
  QElapsedTimer since_;
};
