#pragma once

#include <QAbstractButton>
#include <QCoreApplication>
#include <QWidget>

#include "bench/bench.h"

/// One screen of the program on the bench, under its own controls.
class BenchScreen {
 public:
  /// Opens it and lets it paint.
  BenchScreen(Bench& bench, const char* name)
      : bench_(bench), name_(QLatin1String(name)), screen_(bench.screens.mostra(name_, bench.contesto)) {
    QCoreApplication::processEvents();
  }
  ~BenchScreen() { bench_.screens.scarica(name_); }
  BenchScreen(const BenchScreen&) = delete;
  BenchScreen& operator=(const BenchScreen&) = delete;

  template <typename Control>
  Control& control(const char* name) {
    return *screen_.findChild<Control*>(QLatin1String(name));
  }
  /// Works a command and lets the screen paint.
  void press(const char* name) {
    control<QAbstractButton>(name).click();
    QCoreApplication::processEvents();
  }

 private:
  Bench& bench_;
  QString name_;
  QWidget& screen_;
};
