#pragma once

#include <string_view>

#include "platform/store/dialect.h"

struct sqlite3;

namespace store {

/// Is this declared column type one of date and time?
bool IsDateType(std::string_view kind);

/// Reads the tables of an open file into the dictionary and keeps its date columns in the sortable form,
/// whatever form a statement writes. False where the engine fails; its error stands in the connection.
bool ReadSchema(sqlite3* db, Dictionary& dictionary);

}  // namespace store
