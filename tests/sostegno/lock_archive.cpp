#include <sqlite3.h>

#include <iostream>
#include <string>

// Another program at work on an archive: runs the statements that follow the path, says "pronto" and keeps
// the transaction open until its input ends.
int main(int argc, char** argv) {
  sqlite3* archive = nullptr;
  if (argc < 2 || sqlite3_open(argv[1], &archive) != SQLITE_OK) return 1;
  for (int i = 2; i < argc; ++i)
    if (sqlite3_exec(archive, argv[i], nullptr, nullptr, nullptr) != SQLITE_OK) return 1;
  std::cout << "pronto" << std::endl;
  for (std::string line; std::getline(std::cin, line);) continue;
  return sqlite3_close(archive) == SQLITE_OK ? 0 : 1;
}
