#pragma once

#include <QMutex>
#include <QSemaphore>
#include <QThread>
#include <atomic>
#include <functional>
#include <memory>

class QEventLoop;

/// A thread for calls that wait for a till. The caller waits too, but its windows go on painting: once a call
/// lasts longer than a moment, waiting events are let through, input eaten as under any `BusyGuard`, a
/// closing too. One call at a time, all of them in the same thread, which starts with the first.
class SideThread {
 public:
  SideThread() = default;
  ~SideThread();
  SideThread(const SideThread&) = delete;
  SideThread& operator=(const SideThread&) = delete;

  /// Runs `work` in the thread and comes back at its end, whatever the windows are told meanwhile; what it
  /// throws comes to the caller. Throws Errore 70 while another one runs.
  void run(const std::function<void()>& work);

 private:
  void start();
  void serve();
  void awaitEnd();

  std::unique_ptr<QThread> thread_;
  const std::function<void()>* work_ = nullptr;
  QSemaphore begun_;
  /// Outlives every call: its end may still be under way in the thread when the caller goes on.
  QSemaphore ended_;
  QMutex about_;
  /// Under `about_`: whether the call is over, and the loop that is to hear of it.
  bool over_ = false;
  QEventLoop* loop_ = nullptr;
  std::atomic<bool> busy_ = false;
  std::atomic<bool> leaving_ = false;
};
