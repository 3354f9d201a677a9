#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>

class QCoreApplication;
class QMouseEvent;
class QWindow;

/// The second half of a double click falls into the window that the first half opened, on whatever stands
/// there: while one of these lives it is eaten, press and release. Popups aside, which a second press closes.
class FermaDoppioClic : public QObject {
  Q_OBJECT

 public:
  /// Over every window of `applicazione`, which owns it.
  explicit FermaDoppioClic(QCoreApplication* applicazione);

  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  bool premuta(const QMouseEvent& evento, QWindow* finestra);
  bool seguito(const QMouseEvent& evento) const;

  quint64 quando_ = 0;  // milliseconds of the window system's clock; 0 before the first press
  QPointF dove_;
  QPointer<QWindow> finestra_;
  QPointer<QWindow> mangiata_;
};
