#include "controls/needed_height.h"

#include <QEvent>
#include <QLayout>
#include <QWidget>

namespace {

class NeededHeight : public QObject {
 public:
  explicit NeededHeight(QWidget& content) : QObject(&content), content_(content) {
    content.installEventFilter(this);
  }
  bool eventFilter(QObject* /*content*/, QEvent* event) override {
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) keep();
    return false;
  }

 private:
  void keep() {
    const QLayout* layout = content_.layout();
    if (layout == nullptr || !layout->hasHeightForWidth()) return;
    content_.setMinimumHeight(layout->minimumHeightForWidth(content_.width()));
  }

  QWidget& content_;
};

}  // namespace

void keepNeededHeight(QWidget& content) {
  new NeededHeight(content);
}
