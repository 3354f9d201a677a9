#include "bench/base_sqlite.h"

#include <cstdlib>
#include <stdexcept>

namespace base {

const char* const kImpostazioni =
    "PRAGMA journal_mode=TRUNCATE; PRAGMA synchronous=EXTRA; PRAGMA cache_size=-65536;";

Sqlite::Sqlite(const std::filesystem::path& file) {
  if (sqlite3_open(file.c_str(), &base_) != SQLITE_OK)
    throw std::runtime_error("cannot open " + file.string());
  esegui(kImpostazioni);
}

Sqlite::~Sqlite() {
  for (sqlite3_stmt* frase : frasi_) sqlite3_finalize(frase);
  sqlite3_close(base_);
}

void Sqlite::esegui(const char* sql) {
  if (sqlite3_exec(base_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(base_));
}

sqlite3_stmt* Sqlite::prepara(const char* sql) {
  sqlite3_stmt* frase = nullptr;
  if (sqlite3_prepare_v2(base_, sql, -1, &frase, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(base_));
  frasi_.push_back(frase);
  return frase;
}

void Sqlite::passo(sqlite3_stmt* frase) {
  int esito = SQLITE_ROW;
  while (esito == SQLITE_ROW) esito = sqlite3_step(frase);
  sqlite3_reset(frase);
  if (esito != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(base_));
}

void shell(const std::filesystem::path& archivio, const std::filesystem::path& copione) {
  const std::string comando =
      "sqlite3 -batch '" + archivio.string() + "' < '" + copione.string() + "' > /dev/null";
  if (std::system(comando.c_str()) != 0) throw std::runtime_error("the sqlite3 shell failed");
}

}  // namespace base
