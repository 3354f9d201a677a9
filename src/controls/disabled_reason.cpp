#include "controls/disabled_reason.h"

#include <QAction>
#include <QEvent>
#include <QWidget>

namespace {

class DisabledReason : public QObject {
  Q_OBJECT

 public:
  explicit DisabledReason(QWidget& command) : QObject(&command), command_(command) {
    command.installEventFilter(this);
  }
  void tell(const QString& reason) {
    if (!told_) usual_ = command_.toolTip();
    reason_ = reason;
    follow();
  }
  bool eventFilter(QObject* /*command*/, QEvent* event) override {
    if (event->type() == QEvent::EnabledChange) follow();
    return false;
  }

 private:
  void follow() {
    if (command_.isEnabled()) {
      if (told_) command_.setToolTip(usual_);
      told_ = false;
      return;
    }
    if (!told_) usual_ = command_.toolTip();
    told_ = true;
    command_.setToolTip(reason_);
  }

  QWidget& command_;
  QString reason_;
  QString usual_;
  bool told_ = false;
};

}  // namespace

void tellWhyDisabled(QWidget& command, const QString& reason) {
  auto* const there = command.findChild<DisabledReason*>(QString(), Qt::FindDirectChildrenOnly);
  (there != nullptr ? there : new DisabledReason(command))->tell(reason);
}

void tellWhyDisabled(QAction& action, const QString& reason) {
  const auto follow = [&action, reason, usual = action.toolTip()] {
    action.setToolTip(action.isEnabled() ? usual : QStringLiteral("%1 (%2)").arg(usual, reason));
  };
  QObject::connect(&action, &QAction::enabledChanged, &action, follow);
  follow();
}

#include "disabled_reason.moc"
