#include "platform/ui/user_port.h"

namespace {

int gravity(Icon icon) {
  switch (icon) {
    case Icon::Critical:
      return 2;
    case Icon::Warning:
      return 1;
    case Icon::None:
    case Icon::Question:
    case Icon::Information:
      break;
  }
  return 0;
}

}  // namespace

Answer Utente::MsgBox(const QString& text, Icon icon, const QString& title, Buttons buttons, Preset preset) {
  if (buttons == Buttons::Ok && (!notice_ || gravity(icon) > gravity(notice_->icon)))
    notice_ = Notice{text, icon};
  return ShowBox(text, icon, title, buttons, preset);
}
