#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>

class QCoreApplication;
class QMouseEvent;
class QWindow;

/// The second half of a double click falls into the window that the first half opened, on whatever stands
/// there: while one of these lives it is eaten, press and release. Popups aside, which a second press closes.
class DoubleClickStopper : public QObject {
  Q_OBJECT

 public:
  /// Over every window of `application`, which owns it.
  explicit DoubleClickStopper(QCoreApplication* application);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool pressed(const QMouseEvent& event, QWindow* window);
  bool follows(const QMouseEvent& event) const;

  quint64 when_ = 0;  // milliseconds of the window system's clock; 0 before the first press
  QPointF where_;
  QPointer<QWindow> window_;
  QPointer<QWindow> eaten_;
};
