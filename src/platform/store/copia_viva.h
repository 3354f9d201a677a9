#pragma once

#include <QString>

namespace store {

/// Copies an archive that the process has open, through the engine: plain calls would drop its locks.
void CopiaViva(const QString& sorgente, const QString& destinazione);

/// Plays back and empties the journal that a killed program left beside an archive, so that it is not taken
/// for the journal of the file that is about to stand in its place.
void ChiudiGiornale(const QString& archivio);

}  // namespace store
