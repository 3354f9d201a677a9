#pragma once

#include <QString>

namespace store {

/// Copies an archive that the process has open, through the engine: plain calls would drop its locks.
void CopiaViva(const QString& sorgente, const QString& destinazione);

}  // namespace store
