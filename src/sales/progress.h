#pragma once

#include <QElapsedTimer>

class QProgressBar;

/// A progress bar whose value follows every step and whose picture follows at most every 40 ms: painting 5000
/// steps one by one would cost more than the work they show. Painting is as before once it is gone.
class Avanzamento {
 public:
  explicit Avanzamento(QProgressBar& barra);
  ~Avanzamento();
  Avanzamento(const Avanzamento&) = delete;
  Avanzamento& operator=(const Avanzamento&) = delete;

  void a(int valore);

 private:
  QProgressBar& barra_;
  QElapsedTimer dallUltima_;
};
