#pragma once

class Clock;
struct sqlite3;

namespace store {

/// Name of the engine's function that turns a moment, in any form that a statement may write it, into the
/// sortable one. Null stays null; a text that is no moment fails with "data non valida".
inline constexpr char kDateFunction[] = "data_ordinabile";

/// Name of the engine's function behind the dialect's FORMAT.
inline constexpr char kFormatFunction[] = "formato";
/// Name of the engine's function that turns a moment as text into its sortable form behind the century; null
/// for a text that is no moment.
inline constexpr char kShortMomentFunction[] = "momento_breve";

/// Makes the dialect's functions known to a connection: LIKE, FORMAT, DATE, data_ordinabile, momento_breve.
/// `clock` tells DATE() the day and has to outlive the connection.
void RegisterFunctions(sqlite3* db, const Clock& clock);

}  // namespace store
