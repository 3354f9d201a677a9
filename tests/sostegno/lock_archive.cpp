#include <sqlite3.h>

#include <iostream>
#include <string>

// Another program at work on an archive: runs the statements that follow the path, says "pronto" and keeps
// the transaction open until its input ends.
int main(int argc, char** argv) {
  sqlite3* archivio = nullptr;
  if (argc < 2 || sqlite3_open(argv[1], &archivio) != SQLITE_OK) return 1;
  for (int i = 2; i < argc; ++i)
    if (sqlite3_exec(archivio, argv[i], nullptr, nullptr, nullptr) != SQLITE_OK) return 1;
  std::cout << "pronto" << std::endl;
  for (std::string riga; std::getline(std::cin, riga);) continue;
  return sqlite3_close(archivio) == SQLITE_OK ? 0 : 1;
}
