#pragma once

#include "platform/ui/user_port.h"

/// The message box of the desktop. Its object name is "MsgBox", its text is plain and can be selected.
namespace message_box {

/// Shows the box before the active window and waits for the answer.
Answer show(const QString& text, Icon icon, const QString& title, Buttons buttons);

}  // namespace message_box
