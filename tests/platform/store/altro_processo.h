#pragma once

#include <sys/types.h>

#include <functional>

/// A child process that runs `corpo` and stops there until it is let go or killed: the other program on the
/// same archive, or this one when its power goes. The child must touch nothing that the parent has open.
class AltroProcesso {
 public:
  /// `corpo` returns true when it stands where the test wants it; then the child waits.
  explicit AltroProcesso(const std::function<bool()>& corpo);
  ~AltroProcesso();
  AltroProcesso(const AltroProcesso&) = delete;
  AltroProcesso& operator=(const AltroProcesso&) = delete;

  /// True once `corpo` has returned true.
  bool pronto();
  /// Ends it as a cut of power would, and waits until it is gone.
  void uccidi();

 private:
  pid_t figlio_ = -1;
  int lettura_ = -1;
  int guinzaglio_ = -1;
};

/// Runs `corpo` in a child process and returns what it returns; -1 where the child was killed on the way.
int inUnAltroProcesso(const std::function<int()>& corpo);
