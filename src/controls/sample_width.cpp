#include "controls/sample_width.h"

#include <QEvent>
#include <QLineEdit>

namespace {

/// What a field's size hint has room for.
constexpr int kHintCharacters = 17;
constexpr QChar kHintCharacter = u'x';

class SampleWidth : public QObject {
 public:
  SampleWidth(QLineEdit& field, QString sample, FieldWidth width)
      : QObject(&field), field_(field), sample_(std::move(sample)), width_(width) {
    field.installEventFilter(this);
    give();
  }
  bool eventFilter(QObject*, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (type == QEvent::FontChange || type == QEvent::StyleChange || type == QEvent::Polish)
      QMetaObject::invokeMethod(this, &SampleWidth::give, Qt::QueuedConnection);
    if (type == QEvent::Show) give();
    return false;
  }

 private:
  void give() {
    field_.ensurePolished();
    const QFontMetrics metrics = field_.fontMetrics();
    const int frame =
        field_.QLineEdit::sizeHint().width() - kHintCharacters * metrics.horizontalAdvance(kHintCharacter);
    const int wanted = metrics.horizontalAdvance(sample_) + frame;
    field_.setMinimumWidth(wanted);
    if (width_ == FieldWidth::Exact) field_.setMaximumWidth(wanted);
  }

  QLineEdit& field_;
  QString sample_;
  FieldWidth width_;
};

}  // namespace

void widthFromSample(QLineEdit& field, const QString& sample, FieldWidth width) {
  new SampleWidth(field, sample, width);
}
