#pragma once

#include "platform/ui/user_port.h"

/// The message box of the desktop. Its object name is "MsgBox", its text is plain and can be selected.
namespace message_box {

struct Question {
  QString text;
  Icon icon = Icon::None;
  QString title;
  Buttons buttons = Buttons::Ok;
  Preset preset = Preset::First;
};

struct Reply {
  Answer answer;
  /// The person took the offer not to be shown the same again.
  bool letOthersPass = false;
};

/// Shows the box before the active window and waits for the answer. A key that was down before, or is held,
/// does not answer it. `offersToPass` adds "Chiudi anche i prossimi avvisi uguali".
Reply show(const Question& question, bool offersToPass = false);

}  // namespace message_box
