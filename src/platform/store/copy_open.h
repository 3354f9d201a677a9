#pragma once

#include <QString>

namespace store {

/// Copies an archive that the process has open, through the engine: plain calls would drop its locks.
void CopyOpenArchive(const QString& source, const QString& target);

}  // namespace store
