// Makes a template database of a readable source: crea_modello <source.sql> <target>. The target is replaced
// whole or not at all.

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>

namespace {

struct Chiusura {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};

bool esegui(sqlite3* db, const std::string& sql) {
  char* motivo = nullptr;
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &motivo) == SQLITE_OK) return true;
  std::cerr << (motivo == nullptr ? "?" : motivo) << '\n';
  sqlite3_free(motivo);
  return false;
}

bool crea(const std::string& sorgente, const std::string& destinazione) {
  sqlite3* grezzo = nullptr;
  const int esito =
      sqlite3_open_v2(destinazione.c_str(), &grezzo, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  const std::unique_ptr<sqlite3, Chiusura> db(grezzo);
  if (esito != SQLITE_OK) return false;
  return esegui(db.get(), "BEGIN;" + sorgente + ";COMMIT;") && esegui(db.get(), "VACUUM");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "crea_modello <source.sql> <target>\n";
    return 2;
  }
  std::ifstream entrata(argv[1], std::ios::binary);
  if (!entrata) {
    std::cerr << argv[1] << ": not readable\n";
    return 1;
  }
  const std::string sorgente{std::istreambuf_iterator<char>(entrata), {}};
  const std::string provvisorio = std::string(argv[2]) + ".nuovo";
  std::error_code errore;
  std::filesystem::remove(provvisorio, errore);
  if (!crea(sorgente, provvisorio)) {
    std::filesystem::remove(provvisorio, errore);
    return 1;
  }
  std::filesystem::rename(provvisorio, argv[2], errore);
  if (errore) std::cerr << argv[2] << ": " << errore.message() << '\n';
  return errore ? 1 : 0;
}
