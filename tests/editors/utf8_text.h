#pragma once

#include <QString>

/// A text of the sources, accents and all.
inline QString t(const char* text) {
  return QString::fromUtf8(text);
}
