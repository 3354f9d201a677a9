#pragma once

#include <QDateTime>
#include <functional>

namespace store {

/// What the dialect's DATE() reads: local time.
using Clock = std::function<QDateTime()>;

/// Puts another clock in place, for the whole process; an empty one brings the system's back.
void SetClock(Clock clock);
/// Today; asked of the system once a second, since each asking looks at the time zone's file.
QDate LocalToday();

}  // namespace store
