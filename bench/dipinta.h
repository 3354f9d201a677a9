#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>

/// Ends the event loop once the window has been painted for the first time.
class Dipinta : public QObject {
 public:
  explicit Dipinta(QWidget& finestra) : QObject(&finestra) { finestra.installEventFilter(this); }

  bool eventFilter(QObject* oggetto, QEvent* evento) override {
    if (evento->type() == QEvent::Paint) QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
    return QObject::eventFilter(oggetto, evento);
  }
};
