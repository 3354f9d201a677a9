#include "platform/ui/double_click.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWindow>
#include <utility>

DoubleClickStopper::DoubleClickStopper(QCoreApplication* application) : QObject(application) {
  application->installEventFilter(this);
}

bool DoubleClickStopper::eventFilter(QObject* object, QEvent* event) {
  auto* window = qobject_cast<QWindow*>(object);
  if (!window || window->type() == Qt::Popup) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      return pressed(*static_cast<QMouseEvent*>(event), window);
    case QEvent::MouseButtonDblClick:
      return eaten_ == window;
    case QEvent::MouseButtonRelease:
      return std::exchange(eaten_, nullptr) == window;
    default:
      return false;
  }
}

bool DoubleClickStopper::pressed(const QMouseEvent& event, QWindow* window) {
  if (window_ && window != window_ && follows(event)) {
    eaten_ = window;
    return true;
  }
  eaten_ = nullptr;
  when_ = event.timestamp();
  where_ = event.globalPosition();
  window_ = window;
  return false;
}

/// As soon and as near after the last press as a double click is.
bool DoubleClickStopper::follows(const QMouseEvent& event) const {
  const QStyleHints* hints = QGuiApplication::styleHints();
  return event.timestamp() - when_ < static_cast<quint64>(hints->mouseDoubleClickInterval()) &&
         (event.globalPosition() - where_).manhattanLength() < hints->mouseDoubleClickDistance();
}
