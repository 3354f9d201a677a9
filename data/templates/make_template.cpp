// Makes a database of readable sources, which follow each other: crea_modello <source.sql>... <target>. The
// target is replaced whole or not at all.

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

namespace {

struct Closing {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};

bool run(sqlite3* db, const std::string& sql) {
  char* reason = nullptr;
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &reason) == SQLITE_OK) return true;
  std::cerr << (reason == nullptr ? "?" : reason) << '\n';
  sqlite3_free(reason);
  return false;
}

bool create(const std::string& source, const std::string& target) {
  sqlite3* raw = nullptr;
  const int outcome =
      sqlite3_open_v2(target.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  const std::unique_ptr<sqlite3, Closing> db(raw);
  if (outcome != SQLITE_OK) return false;
  return run(db.get(), "BEGIN;" + source + ";COMMIT;") && run(db.get(), "VACUUM");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "crea_modello <source.sql>... <target>\n";
    return 2;
  }
  const std::string target = argv[argc - 1];
  std::string source;
  for (int i = 1; i < argc - 1; ++i) {
    std::ifstream entered(argv[i], std::ios::binary);
    if (!entered) {
      std::cerr << argv[i] << ": not readable\n";
      return 1;
    }
    source.append(std::istreambuf_iterator<char>(entered), {});
  }
  const std::string temporary = target + ".nuovo";
  std::error_code errors;
  std::filesystem::remove(temporary, errors);
  if (!create(source, temporary)) {
    std::filesystem::remove(temporary, errors);
    return 1;
  }
  std::filesystem::rename(temporary, target, errors);
  if (errors) std::cerr << target << ": " << errors.message() << '\n';
  return errors ? 1 : 0;
}
