#pragma once

class QWidget;

/// The wheel moves `input`, a list or a number field, only while it has the focus, and gives it none: someone
/// who scrolls past it changes nothing. What it does not take goes to what lies below. A second
/// call changes nothing.
void wheelNeedsFocus(QWidget& input);
