#pragma once

class QWidget;

/// Enter and Esc held down since the window before do nothing in `window`, whose controls are
/// made already: they would press what it happens to offer first.
void ignoreHeldKeys(QWidget& window);
