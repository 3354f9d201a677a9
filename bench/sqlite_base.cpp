#include "bench/sqlite_base.h"

#include <cstdlib>
#include <stdexcept>

namespace base {

const char* const kSettings =
    "PRAGMA journal_mode=TRUNCATE; PRAGMA synchronous=EXTRA; PRAGMA cache_size=-65536;";

Sqlite::Sqlite(const std::filesystem::path& file) {
  if (sqlite3_open(file.c_str(), &base_) != SQLITE_OK)
    throw std::runtime_error("cannot open " + file.string());
  run(kSettings);
}

Sqlite::~Sqlite() {
  for (sqlite3_stmt* sentence : sentences_) sqlite3_finalize(sentence);
  sqlite3_close(base_);
}

void Sqlite::run(const char* sql) {
  if (sqlite3_exec(base_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(base_));
}

sqlite3_stmt* Sqlite::prepare(const char* sql) {
  sqlite3_stmt* sentence = nullptr;
  if (sqlite3_prepare_v2(base_, sql, -1, &sentence, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(base_));
  sentences_.push_back(sentence);
  return sentence;
}

void Sqlite::step(sqlite3_stmt* sentence) {
  int outcome = SQLITE_ROW;
  while (outcome == SQLITE_ROW) outcome = sqlite3_step(sentence);
  sqlite3_reset(sentence);
  if (outcome != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(base_));
}

void shell(const std::filesystem::path& archive, const std::filesystem::path& script) {
  const std::string command =
      "sqlite3 -batch '" + archive.string() + "' < '" + script.string() + "' > /dev/null";
  if (std::system(command.c_str()) != 0) throw std::runtime_error("the sqlite3 shell failed");
}

}  // namespace base
