#include "controls/heading_font.h"

#include <QEvent>
#include <QLabel>

namespace {

/// Of the letters around it.
constexpr qreal kHeading = 1.5;

class HeadingFont : public QObject {
  Q_OBJECT

 public:
  explicit HeadingFont(QLabel& label) : QObject(&label), label_(label) {
    label.parentWidget()->installEventFilter(this);
    grow();
  }
  bool eventFilter(QObject* /*around*/, QEvent* event) override {
    if (event->type() == QEvent::FontChange) grow();
    return false;
  }

 private:
  void grow() {
    const qreal around = label_.parentWidget()->font().pointSizeF();
    if (around <= 0) return;
    QFont letters = label_.font();
    letters.setPointSizeF(around * kHeading);
    label_.setFont(letters);
  }

  QLabel& label_;
};

}  // namespace

void growAsHeading(QLabel& label) {
  const bool grown = label.findChild<HeadingFont*>(QString(), Qt::FindDirectChildrenOnly) != nullptr;
  if (!grown && label.parentWidget() != nullptr) new HeadingFont(label);
}

#include "heading_font.moc"
