#include "controls/primary_command.h"

#include <QPushButton>
#include <QStyle>
#include <utility>

#include "controls/style.h"

namespace {

void demote(QPushButton& button, const QString& icon) {
  button.setProperty("primary", false);
  button.setIcon(style::icon(icon));
  button.style()->unpolish(&button);
  button.style()->polish(&button);
}

}  // namespace

PrimaryCommand::PrimaryCommand(std::vector<Candidate> candidates) : candidates_(std::move(candidates)) {
  moveTo(*candidates_.front().button);
}

void PrimaryCommand::moveTo(const QPushButton& button) {
  if (std::exchange(primary_, &button) == &button) return;
  for (const Candidate& one : candidates_) {
    if (one.button != &button) {
      demote(*one.button, one.icon);
      continue;
    }
    style::primary(*one.button, one.icon);
    one.button->setDefault(true);
  }
}
