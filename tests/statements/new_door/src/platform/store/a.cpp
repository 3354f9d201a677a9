#include <sqlite3.h>

#include <string>

void rename(sqlite3* archive, const std::string& typed) {
  sqlite3_exec(archive, ("DELETE FROM TAB_ARTICOLI WHERE Codice_EAN ='" + typed + "'").c_str(), nullptr,
               nullptr, nullptr);
}
