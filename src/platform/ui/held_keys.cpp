#include "platform/ui/held_keys.h"

#include <QKeyEvent>
#include <QWidget>

namespace {

class HeldKeys : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* /*control*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto& key = *static_cast<const QKeyEvent*>(event);
    return key.isAutoRepeat() &&
           (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Escape);
  }
};

}  // namespace

void ignoreHeldKeys(QWidget& window) {
  auto* const filter = new HeldKeys(&window);
  window.installEventFilter(filter);
  for (QWidget* control : window.findChildren<QWidget*>()) control->installEventFilter(filter);
}
