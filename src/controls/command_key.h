#pragma once

class QKeySequence;
class QLineEdit;
class QPushButton;

/// A key that presses `button` from anywhere in its window, as a click would: a guarded field that has the
/// focus is checked first. Its name is added to the button's tooltip.
void commandKey(QPushButton& button, const QKeySequence& key);
/// A key that leads to `field` and selects what stands there; added to the field's tooltip.
void fieldKey(QLineEdit& field, const QKeySequence& key);
/// Enter does not press `button`, which has the focus: for the one that leaves a screen. Space and clicks do.
void notByEnter(QPushButton& button);
