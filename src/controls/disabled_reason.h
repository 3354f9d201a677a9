#pragma once

#include <QString>

class QAction;
class QWidget;

/// The tooltip of `command` says `reason` while it is disabled, and what it said before once it is enabled.
/// A later call gives it another reason.
void tellWhyDisabled(QWidget& command, const QString& reason);
/// The same for an action, whose own words stay in front of the reason: its buttons and menus show one
/// tooltip.
void tellWhyDisabled(QAction& action, const QString& reason);
