#include "platform/ecrcom/side_thread.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QScopeGuard>
#include <exception>

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
  if (!thread_) return;
  leaving_ = true;
  begun_.release();
  thread_->wait();
}

void SideThread::start() {
  if (thread_) return;
  thread_.reset(QThread::create([this] { serve(); }));
  thread_->setObjectName(QStringLiteral("ecrcom"));
  thread_->start();
}

void SideThread::serve() {
  for (begun_.acquire(); !leaving_; begun_.acquire()) {
    (*work_)();
    {
      const QMutexLocker alone(&about_);
      over_ = true;
      if (loop_) QMetaObject::invokeMethod(loop_, &QEventLoop::quit, Qt::QueuedConnection);
    }
    ended_.release();
  }
}

void SideThread::awaitEnd() {
  if (ended_.tryAcquire(1, kMoment)) return;
  if (inWindowsThread()) {
    const BusyGuard guard;
    QEventLoop loop;
    {
      const QMutexLocker alone(&about_);
      if (!over_) loop_ = &loop;
    }
    if (loop_) loop.exec();
    const QMutexLocker alone(&about_);
    loop_ = nullptr;
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
  std::exception_ptr failure;
  const std::function<void()> guarded = [&] {
    try {
      work();
    } catch (...) {
      failure = std::current_exception();
    }
  };
  over_ = false;
  work_ = &guarded;
  begun_.release();
  awaitEnd();
  if (failure) std::rethrow_exception(failure);
}
