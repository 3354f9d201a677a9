#pragma once

#include <QElapsedTimer>

class QProgressBar;

/// A progress bar whose value follows every step and whose picture follows at most every 40 ms: painting 5000
/// steps one by one would cost more than the work they show. Painting is as before once it is gone.
class SteadyProgress {
 public:
  explicit SteadyProgress(QProgressBar& bar);
  ~SteadyProgress();
  SteadyProgress(const SteadyProgress&) = delete;
  SteadyProgress& operator=(const SteadyProgress&) = delete;

  void to(int value);

 private:
  QProgressBar& bar_;
  QElapsedTimer sinceLast_;
};
