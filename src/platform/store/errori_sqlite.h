#pragma once

#include <string_view>

#include "platform/errore.h"
#include "platform/store/dialetto.h"

struct sqlite3;

namespace store {

/// What was under way when the engine failed: the same code of the engine's reads differently.
enum class Momento { Apertura, Istruzione };

/// Errore for the last failure of a connection.
Errore ErroreDelMotore(sqlite3* db, Momento momento);
/// Errore of a statement that the engine refused to prepare; syntax errors quote the piece of `sorgente`
/// where the engine stopped.
Errore ErroreDiPreparazione(sqlite3* db, std::string_view sorgente, const Dizionario& dizionario);

}  // namespace store
