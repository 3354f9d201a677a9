#include "controls/outcome_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

#include "controls/style.h"

namespace {

constexpr int kSign = 18;
constexpr int kGap = 8;

/// How a kind looks: name of its icon, and the value that the style sheet asks for.
struct Appearance {
  const char* icon;
  const char* value;
};

Appearance appearance(OutcomeBar::Kind kind) {
  switch (kind) {
    case OutcomeBar::Kind::Done:
      return {"circle-check", "done"};
    case OutcomeBar::Kind::Warning:
      return {"triangle-alert", "warning"};
    case OutcomeBar::Kind::Failed:
      return {"circle-x", "failed"};
    case OutcomeBar::Kind::Plain:
      break;
  }
  return {"info", "plain"};
}

}  // namespace

OutcomeBar::OutcomeBar(QWidget* parent) : QFrame(parent), sign_(new QLabel), text_(new QLabel) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap);
  row->addWidget(sign_, 0, Qt::AlignTop);
  row->addWidget(text_, 1);
  text_->setWordWrap(true);
  text_->setTextFormat(Qt::PlainText);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  clear();
}

QString OutcomeBar::text() const {
  return text_->text();
}

void OutcomeBar::tell(Kind kind, const QString& text) {
  kind_ = kind;
  const Appearance now = appearance(kind);
  sign_->setVisible(!text.isEmpty());
  sign_->setPixmap(style::icon(QLatin1String(now.icon)).pixmap(kSign));
  text_->setText(text);
  text_->setToolTip(text);
  setAccessibleName(text);
  text_->setProperty("outcome", QLatin1String(now.value));
  text_->style()->unpolish(text_);
  text_->style()->polish(text_);
}

void OutcomeBar::clear() {
  tell(Kind::Plain, {});
}
