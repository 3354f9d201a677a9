#pragma once

#include <QString>

/// Why a source is refused; `line` from 1, 0 for the source as a whole.
struct SourceRefused {
  int line = 0;
  QString reason;
};

[[noreturn]] inline void refuse(const QString& reason) {
  throw SourceRefused{0, reason};
}

inline QString quoted(const QString& text) {
  return u'"' + text + u'"';
}
