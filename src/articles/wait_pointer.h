#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace articles {

/// The working pointer, for its own life.
class PuntatoreAttesa {
 public:
  PuntatoreAttesa() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~PuntatoreAttesa() { QGuiApplication::restoreOverrideCursor(); }
  PuntatoreAttesa(const PuntatoreAttesa&) = delete;
  PuntatoreAttesa& operator=(const PuntatoreAttesa&) = delete;
};

}  // namespace articles
