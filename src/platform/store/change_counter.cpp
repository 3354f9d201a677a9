#include "platform/store/change_counter.h"

#include <sqlite3.h>

#include <array>

namespace store {

namespace {
/// Place of the big-endian change counter in the file's header.
constexpr sqlite3_int64 kOffset = 24;
}  // namespace

std::optional<std::uint32_t> ChangeCounter(sqlite3* db) {
  sqlite3_file* file = nullptr;
  std::array<unsigned char, 4> byte{};
  if (sqlite3_file_control(db, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK) return std::nullopt;
  if (file == nullptr || file->pMethods == nullptr) return std::nullopt;
  if (file->pMethods->xRead(file, byte.data(), static_cast<int>(byte.size()), kOffset) != SQLITE_OK)
    return std::nullopt;
  std::uint32_t counter = 0;
  for (const unsigned char b : byte) counter = (counter << 8U) | b;
  return counter;
}

}  // namespace store
