#include "controls/wheel_guard.h"

#include <QEvent>
#include <QWidget>

namespace {

class WheelGuard : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel || static_cast<const QWidget*>(watched)->hasFocus()) return false;
    event->ignore();
    return true;
  }
};

}  // namespace

void wheelNeedsFocus(QWidget& input) {
  const QString name = QStringLiteral("rotella");
  if (input.findChild<QObject*>(name, Qt::FindDirectChildrenOnly)) return;
  if (input.focusPolicy() == Qt::WheelFocus) input.setFocusPolicy(Qt::StrongFocus);
  auto* guard = new WheelGuard(&input);
  guard->setObjectName(name);
  input.installEventFilter(guard);
}
