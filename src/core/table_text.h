#pragma once

#include <QString>

/// A text of a compile-time table as the screens take it; none for null.
inline QString testo(const char16_t* voce) {
  return voce ? QString::fromUtf16(voce) : QString();
}
