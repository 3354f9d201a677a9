#pragma once

#include <cstdint>
#include <optional>

struct sqlite3;

namespace store {

/// The count of transactions that the file itself bears, read past the engine's cache but through its handle,
/// so that its locks stand. Nothing where it cannot be read.
std::optional<std::uint32_t> ChangeCounter(sqlite3* db);

}  // namespace store
