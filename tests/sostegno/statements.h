#pragma once

#include <QString>

#include "platform/store/statement.h"

/// A statement as a test writes it, whole.
inline store::Statement asWritten(const QString& text) {
  return store::Statement::AsWritten(text);
}
