#pragma once

#include <sys/types.h>

#include <functional>

/// A child process that runs `body` and stops there until it is let go or killed: the other program on the
/// same archive, or this one when its power goes. The child must touch nothing that the parent has open.
class OtherProcess {
 public:
  /// `body` returns true when it stands where the test wants it; then the child waits.
  explicit OtherProcess(const std::function<bool()>& body);
  ~OtherProcess();
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  /// True once `body` has returned true.
  bool ready();
  /// Ends it as a cut of power would, and waits until it is gone.
  void uccidi();

 private:
  pid_t figlio_ = -1;
  int reading_ = -1;
  int guinzaglio_ = -1;
};

/// Runs `body` in a child process and returns what it returns; -1 where the child was killed on the way.
int inOneOtherProcess(const std::function<int()>& body);
