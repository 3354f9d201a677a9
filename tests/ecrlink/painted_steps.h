#pragma once

#include <QEvent>
#include <QLabel>
#include <QStringList>
#include <functional>

#include "controls/outcome_bar.h"

/// The steps of the till's calls that the person could read at the foot of a screen, in the order in which
/// they were painted; what else is told there does not count.
class PaintedSteps : public QObject {
 public:
  explicit PaintedSteps(const QWidget& screen) : foot_(screen.findChild<OutcomeBar*>()) {
    if (!foot_) throw std::runtime_error("no foot");
    for (QLabel* label : foot_->findChildren<QLabel*>()) label->installEventFilter(this);
  }

  /// Called at each new step, while it is painted.
  std::function<void()> onStep;
  const QStringList& steps() const { return steps_; }

  bool eventFilter(QObject* label, QEvent* event) override {
    const QString text = foot_->text();
    // The label of the text, not that of the time.
    if (event->type() != QEvent::Paint || label->property("text").toString() != text) return false;
    if (!text.contains(QStringLiteral(" …"))) return false;
    if (!steps_.isEmpty() && steps_.last() == text) return false;
    steps_ << text;
    if (onStep) onStep();
    return false;
  }

 private:
  const OutcomeBar* foot_;
  QStringList steps_;
};
