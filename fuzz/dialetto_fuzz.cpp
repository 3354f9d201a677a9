// The translator of the statements' dialect: whatever the user typed stands in them, unescaped. What it lets
// through must be one statement with exactly the parameters that it lifted.

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/errore.h"
#include "platform/store/dialetto.h"
#include "platform/store/funzioni.h"

namespace {

sqlite3* motore() {
  static sqlite3* const db = [] {
    sqlite3* aperto = nullptr;
    if (sqlite3_open(":memory:", &aperto) != SQLITE_OK) std::abort();
    store::RegistraFunzioni(aperto);
    sqlite3_exec(aperto,
                 "CREATE TABLE T (a TEXT COLLATE NOCASE, b INTEGER, d DATETIME); CREATE INDEX I ON T (a)",
                 nullptr, nullptr, nullptr);
    return aperto;
  }();
  return db;
}

void confronta(const store::Traduzione& traduzione) {
  sqlite3_stmt* istruzione = nullptr;
  const char* resto = nullptr;
  const int lunghezza = static_cast<int>(traduzione.sql.size());
  if (sqlite3_prepare_v2(motore(), traduzione.sql.data(), lunghezza, &istruzione, &resto) != SQLITE_OK)
    return;
  if (static_cast<std::size_t>(sqlite3_bind_parameter_count(istruzione)) != traduzione.parametri.size())
    std::abort();
  if (std::string_view(resto).find_first_not_of(' ') != std::string_view::npos) std::abort();
  sqlite3_finalize(istruzione);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
  static const store::Dizionario dizionario = [] {
    store::Dizionario nuovo;
    nuovo.aggiungi("a");
    return nuovo;
  }();
  static store::Traduzione traduzione;
  const std::string_view testo(static_cast<const char*>(static_cast<const void*>(dati)), quanti);
  try {
    store::Traduci(testo, dizionario, traduzione);
  } catch (const Errore& errore) {
    if (errore.numero == 0 || errore.descrizione.isEmpty()) std::abort();
    return 0;
  }
  if (!traduzione.definizione) confronta(traduzione);
  return 0;
}
