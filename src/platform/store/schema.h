#pragma once

#include <string_view>

#include "platform/store/dialetto.h"

struct sqlite3;

namespace store {

/// Is this declared column type one of date and time?
bool TipoData(std::string_view tipo);

/// Reads the tables of an open file into the dictionary and keeps its date columns in the sortable form,
/// whatever form a statement writes. False where the engine fails; its error stands in the connection.
bool LeggiSchema(sqlite3* db, Dizionario& dizionario);

}  // namespace store
