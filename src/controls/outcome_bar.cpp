#include "controls/outcome_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "controls/style.h"
#include "platform/clock.h"

namespace {

constexpr int kSign = 18;
constexpr int kGap = 8;
/// Average letters of a word that the bar makes room for. A longer one, a file's name, is cut and stands
/// whole in the tooltip: the window keeps its width.
constexpr int kWord = 24;

/// How a kind looks: name of its icon, and the value that the style sheet asks for.
struct Appearance {
  const char* icon;
  const char* value;
  style::Badge badge;
};

Appearance appearance(OutcomeBar::Kind kind) {
  switch (kind) {
    case OutcomeBar::Kind::Done:
      return {"circle-check", "done", style::Badge::Ready};
    case OutcomeBar::Kind::Warning:
      return {"triangle-alert", "warning", style::Badge::Busy};
    case OutcomeBar::Kind::Failed:
      return {"circle-x", "failed", style::Badge::Fault};
    case OutcomeBar::Kind::Plain:
      break;
  }
  return {"info", "plain", style::Badge::Neutral};
}

/// A text that can be copied. What selecting takes, a document that is laid out anew for each text, is made
/// when the pointer comes: a transfer tells dozens of steps that nobody selects.
class CopiedText : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void enterEvent(QEnterEvent* event) override {
    const Qt::FocusPolicy before = focusPolicy();
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(before);
    QLabel::enterEvent(event);
  }
};

}  // namespace

OutcomeBar::OutcomeBar(QWidget* parent)
    : QFrame(parent), sign_(new QLabel), text_(new CopiedText), button_(new QToolButton), time_(new QLabel) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap);
  row->addWidget(sign_, 0, Qt::AlignVCenter);
  row->addWidget(text_, 1);
  row->addWidget(button_, 0, Qt::AlignVCenter);
  row->addWidget(time_, 0, Qt::AlignVCenter);
  text_->setWordWrap(true);
  text_->setTextFormat(Qt::PlainText);
  button_->setObjectName(QStringLiteral("AzioneEsito"));
  button_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  button_->setFocusPolicy(Qt::TabFocus);
  time_->setProperty("note", true);
  connect(button_, &QToolButton::clicked, this, [this] {
    // What runs may tell something else, and take this action's place.
    if (const auto run = action_.run) run();
  });
  clear();
}

QString OutcomeBar::text() const {
  return text_->text();
}

void OutcomeBar::tell(Kind kind, const QString& text, Action action) {
  kind_ = kind;
  action_ = std::move(action);
  const Appearance now = appearance(kind);
  sign_->setVisible(!text.isEmpty());
  sign_->setPixmap(style::signIcon(QLatin1String(now.icon), now.badge).pixmap(kSign));
  if (!text_->underMouse()) text_->setTextInteractionFlags(Qt::NoTextInteraction);
  text_->setText(text);
  // Where nothing is told there is nothing to come to.
  text_->setFocusPolicy(text.isEmpty() ? Qt::NoFocus : Qt::ClickFocus);
  text_->setToolTip(text);
  setAccessibleName(text);
  button_->setText(action_.caption);
  button_->setVisible(static_cast<bool>(action_.run));
  const bool timed = clock_ != nullptr && !text.isEmpty();
  time_->setText(timed ? clock_->now().toString(QStringLiteral("HH:mm")) : QString());
  if (text_->property("outcome") != QLatin1String(now.value)) {
    text_->setProperty("outcome", QLatin1String(now.value));
    text_->style()->unpolish(text_);
    text_->style()->polish(text_);
  }
  text_->setMinimumWidth(0);
  text_->setMinimumWidth(
      std::min(text_->minimumSizeHint().width(), kWord * text_->fontMetrics().averageCharWidth()));
}

void OutcomeBar::clear() {
  tell(Kind::Plain, {});
}
