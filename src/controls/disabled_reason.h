#pragma once

#include <QString>

class QWidget;

/// The tooltip of `command` says `reason` while it is disabled, and what it said before once it is enabled.
/// A later call gives it another reason.
void tellWhyDisabled(QWidget& command, const QString& reason);
