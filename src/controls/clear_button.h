#pragma once

class QLineEdit;

/// The cross at the end of a field that empties it, with a name for who does not see it: the toolkit's own
/// has none.
void addClearButton(QLineEdit& field);
