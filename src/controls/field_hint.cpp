#include "controls/field_hint.h"

#include <QAccessible>
#include <algorithm>

namespace {

constexpr int kGap = 2;
constexpr int kMargin = 5;

/// What the hint lies in: the window, or what scrolls with the field.
QWidget* hostOf(QWidget& field) {
  QWidget* host = field.parentWidget();
  while (host != nullptr && !host->isWindow() &&
         host->parentWidget()->objectName() != QLatin1String("qt_scrollarea_viewport"))
    host = host->parentWidget();
  return host;
}

}  // namespace

FieldHint::FieldHint(QWidget& field) : QObject(&field), field_(field) {}

FieldHint::~FieldHint() {
  delete label_;
}

bool FieldHint::isTold() const {
  return label_ && !label_->isHidden();
}

void FieldHint::tell(const QString& text) {
  if (!label_) {
    QWidget* const host = hostOf(field_);
    if (host == nullptr) return;
    label_ = new QLabel(host);
    label_->setObjectName(QStringLiteral("Avviso_") + field_.objectName());
    label_->setTextFormat(Qt::PlainText);
    label_->setFrameShape(QFrame::Box);
    label_->setMargin(kMargin);
    label_->setAutoFillBackground(true);
    label_->setBackgroundRole(QPalette::ToolTipBase);
    label_->setForegroundRole(QPalette::ToolTipText);
    label_->setAttribute(Qt::WA_TransparentForMouseEvents);
  }
  if (!isTold()) description_ = field_.accessibleDescription();
  label_->setText(text);
  field_.setAccessibleDescription(text);
  place();
  label_->show();
  QAccessibleEvent alert(label_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void FieldHint::withdraw() {
  if (!isTold()) return;
  label_->hide();
  field_.setAccessibleDescription(description_);
}

void FieldHint::place() {
  const QWidget& host = *label_->parentWidget();
  label_->adjustSize();
  QPoint at = field_.mapTo(&host, QPoint(0, field_.height() + kGap));
  at.setX(std::clamp(at.x(), 0, std::max(host.width() - label_->width(), 0)));
  if (at.y() + label_->height() > host.height())
    at.setY(field_.mapTo(&host, QPoint()).y() - label_->height() - kGap);
  label_->move(at);
  label_->raise();
}
