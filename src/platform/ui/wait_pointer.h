#pragma once

#include <QCursor>
#include <QGuiApplication>

/// The working pointer, for its own life or until it is taken back.
class WaitPointer {
 public:
  WaitPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitPointer() { takeBack(); }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;

  void takeBack() {
    if (on_) QGuiApplication::restoreOverrideCursor();
    on_ = false;
  }

 private:
  bool on_ = true;
};
