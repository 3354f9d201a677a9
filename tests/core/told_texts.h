#pragma once

#include <QString>
#include <vector>

/// A text that the program tells a person, as it stands in the sources: "%1" for what changes.
struct ToldText {
  /// Of its source, below src.
  QString file;
  QString words;
};

/// Read from the sources: the texts of what shows a box, writes at the foot of a screen or below a field, or
/// says why a command is off; and of the functions and constants that those take their words from. Of one
/// word alone only what is followed by a colon.
std::vector<ToldText> toldTexts();
