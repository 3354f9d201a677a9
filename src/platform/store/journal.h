#pragma once

#include <QString>

struct sqlite3;

namespace store {

/// Deletes the empty journal beside the file of a connection that is about to close and has nothing pending.
/// Costs no sync. The journal stays where the file is read-only, in another program's hands or no longer the
/// one at its path; it does no harm there and goes with the next close.
void RemoveJournal(sqlite3* db);

/// Plays back and deletes the journal or the log that a killed program left beside an archive, there or not,
/// so that it is not taken for that of the file that is about to stand in the archive's place. Throws Errore
/// 70 where somebody is at work on the log.
void SettleLogs(const QString& archive);

}  // namespace store
