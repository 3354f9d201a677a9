#include "platform/clock.h"

#include <ctime>

namespace {

class SystemClock : public Clock {
 public:
  QDateTime now() const override { return QDateTime::currentDateTime(); }

  QDate today() const override {
    const std::time_t second = std::time(nullptr);
    if (second != second_) {
      day_ = QDate::currentDate();
      second_ = second;
    }
    return day_;
  }

 private:
  mutable std::time_t second_ = -1;
  mutable QDate day_;
};

}  // namespace

const Clock& systemClock() {
  static const SystemClock only;
  return only;
}
