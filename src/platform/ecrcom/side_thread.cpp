#include "platform/ecrcom/side_thread.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QScopeGuard>
#include <exception>
#include <optional>

#include "platform/error.h"
#include "platform/ui/busy_guard.h"

namespace {

/// A call that is over by then lets nothing through at all; a window that waits no longer than this for its
/// repaint looks alive. Milliseconds.
constexpr int kMoment = 25;

bool inWindowsThread() {
  return QCoreApplication::instance() && QThread::currentThread() == QCoreApplication::instance()->thread();
}

}  // namespace

SideThread::~SideThread() {
  thread_.quit();
  thread_.wait();
}

void SideThread::start() {
  if (thread_.isRunning()) return;
  thread_.setObjectName(QStringLiteral("ecrcom"));
  inThread_.moveToThread(&thread_);
  thread_.start();
}

void SideThread::awaitEnd(QEventLoop* loop) {
  if (ended_.tryAcquire(1, kMoment)) return;
  if (loop) {
    const BusyGuard guard;
    loop->exec();
  }
  // The end of the program leaves every loop: the call is awaited all the same.
  ended_.acquire();
}

void SideThread::run(const std::function<void()>& work) {
  if (busy_.exchange(true))
    throw Errore{
        errors::kAccessDenied,
        QStringLiteral("La cassa sta ancora eseguendo un altro comando: attendere che abbia finito.")};
  const auto free = qScopeGuard([this] { busy_ = false; });
  start();
  std::optional<QEventLoop> loop;
  if (inWindowsThread()) loop.emplace();
  std::exception_ptr failure;
  QMetaObject::invokeMethod(
      &inThread_,
      [&] {
        try {
          work();
        } catch (...) {
          failure = std::current_exception();
        }
        if (loop) QMetaObject::invokeMethod(&*loop, &QEventLoop::quit, Qt::QueuedConnection);
        ended_.release();
      },
      Qt::QueuedConnection);
  awaitEnd(loop ? &*loop : nullptr);
  if (failure) std::rethrow_exception(failure);
}
