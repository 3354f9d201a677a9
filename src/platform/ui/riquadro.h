#pragma once

#include "platform/ui/utente.h"

/// The message box of the desktop. Its object name is "MsgBox", its text is plain and can be selected.
namespace riquadro {

/// Shows the box before the active window and waits for the answer.
Risposta mostra(const QString& testo, Icona icona, const QString& titolo, Pulsanti pulsanti);

}  // namespace riquadro
