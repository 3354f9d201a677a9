#pragma once

#include <QElapsedTimer>
#include <QString>

class QProgressBar;

/// A bar at the beginning of so many steps; `format` as QProgressBar has it, empty for no text.
void beginProgress(QProgressBar& bar, int steps, const QString& format);

/// A progress bar whose value follows every step and whose picture follows at most every 40 ms: painting 5000
/// steps one by one would cost more than the work they show. Painting is as before until the first step, at
/// each rest, and once it is gone.
class SteadyProgress {
 public:
  explicit SteadyProgress(QProgressBar& bar);
  ~SteadyProgress();
  SteadyProgress(const SteadyProgress&) = delete;
  SteadyProgress& operator=(const SteadyProgress&) = delete;

  void to(int value);
  /// The picture catches up: to be called before anything that the person may look at for long.
  void rest();
  /// The last step is done: the bar reads 100% from now on, though its value may be that of the last step,
  /// one short of all.
  void end();

 private:
  QProgressBar& bar_;
  QElapsedTimer sinceLast_;
};
