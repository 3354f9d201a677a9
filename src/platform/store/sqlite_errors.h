#pragma once

#include <string_view>

#include "platform/error.h"
#include "platform/store/dialect.h"

struct sqlite3;

namespace store {

/// What was under way when the engine failed: the same code of the engine's reads differently.
enum class Moment { Opening, Statement };

/// Errore for the last failure of a connection.
Errore EngineError(sqlite3* db, Moment moment);
/// Errore of a disk that does not read or write, for whatever reason but its being full.
Errore DiskError();
/// Errore of a statement that the engine refused to prepare; syntax errors quote the piece of `source`
/// where the engine stopped.
Errore PreparationError(sqlite3* db, std::string_view source, const Dictionary& dictionary);

}  // namespace store
