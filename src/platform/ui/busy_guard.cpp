#include "platform/ui/busy_guard.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace {

int live = 0;
unsigned begun = 0;

bool toBeEaten(QEvent::Type kind) {
  switch (kind) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::Close:
    case QEvent::Quit:
      return true;
    default:
      return false;
  }
}

/// The window that may be closed; none where it is null.
const QWidget* closable = nullptr;

bool closesTheClosable(const QObject* who, const QEvent& event) {
  return closable != nullptr && event.type() == QEvent::Close &&
         (who == closable || who == closable->windowHandle());
}

class Filter : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* who, QEvent* event) override {
    if (!BusyGuard::active() || !toBeEaten(event->type()) || closesTheClosable(who, *event)) return false;
    // A closing that nobody refuses hides the window all the same; other input must not climb to the parent.
    event->setAccepted(event->type() != QEvent::Close && event->type() != QEvent::Quit);
    return true;
  }
};

/// Over the whole application, made with the first guard and gone with the application.
void installFilter() {
  static QPointer<Filter> filter;
  QCoreApplication* application = QCoreApplication::instance();
  if (filter || !application) return;
  filter = new Filter(application);
  application->installEventFilter(filter);
}

}  // namespace

BusyGuard::BusyGuard() {
  installFilter();
  if (live == 0) ++begun;
  ++live;
}

BusyGuard::~BusyGuard() {
  if (live == 1 && QCoreApplication::instance()) QCoreApplication::processEvents();
  --live;
}

bool BusyGuard::active() {
  return live > 0;
}

unsigned BusyGuard::number() {
  return begun;
}

BusyGuard::Closable::Closable(QWidget& window) : before_(std::exchange(closable, &window)) {}

BusyGuard::Closable::~Closable() {
  closable = before_;
}

BusyGuard::Suspended::Suspended() {
  // What was pressed before the box opened is no answer to it.
  if (BusyGuard::active() && QCoreApplication::instance()) QCoreApplication::processEvents();
  before_ = std::exchange(live, 0);
}

BusyGuard::Suspended::~Suspended() {
  live += before_;
}
