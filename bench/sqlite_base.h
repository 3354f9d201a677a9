#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <vector>

/// What the works are measured against: SQLite used directly, with the durability that our archives have.
namespace base {

/// A connection with our journal and sync settings.
class Sqlite {
 public:
  explicit Sqlite(const std::filesystem::path& file);
  ~Sqlite();
  Sqlite(const Sqlite&) = delete;
  Sqlite& operator=(const Sqlite&) = delete;

  void run(const char* sql);
  sqlite3_stmt* prepare(const char* sql);
  /// Steps to the end and resets.
  void step(sqlite3_stmt* sentence);
  sqlite3* handle() { return base_; }

 private:
  sqlite3* base_ = nullptr;
  std::vector<sqlite3_stmt*> sentences_;
};

/// Settings of our archives, in front of a script for the shell.
extern const char* const kSettings;
/// Feeds a script to the `sqlite3` shell; throws std::runtime_error if it fails.
void shell(const std::filesystem::path& archive, const std::filesystem::path& script);

}  // namespace base
