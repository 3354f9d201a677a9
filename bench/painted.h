#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>

/// Ends the event loop once the window has been painted for the first time.
class Painted : public QObject {
 public:
  explicit Painted(QWidget& window) : QObject(&window) { window.installEventFilter(this); }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
    return QObject::eventFilter(object, event);
  }
};
