#include "platform/store/schema.h"

#include <sqlite3.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/store/funzioni.h"

namespace store {

namespace {

struct Colonna {
  std::string tabella;
  std::string nome;
  std::string tipo;
  bool inTestaAIndice = false;
};

std::string testo(sqlite3_stmt* istruzione, int colonna) {
  const auto* byte = sqlite3_column_text(istruzione, colonna);
  if (byte == nullptr) return {};
  return static_cast<const char*>(static_cast<const void*>(byte));
}

bool perOgniRiga(sqlite3* db, const char* sql, const std::function<void(sqlite3_stmt*)>& riga) {
  sqlite3_stmt* istruzione = nullptr;
  if (sqlite3_prepare_v2(db, sql, -1, &istruzione, nullptr) != SQLITE_OK) return false;
  int esito = SQLITE_ROW;
  while ((esito = sqlite3_step(istruzione)) == SQLITE_ROW) riga(istruzione);
  sqlite3_finalize(istruzione);
  return esito == SQLITE_DONE;
}

constexpr char kColonne[] =
    "SELECT m.name, c.name, c.type, EXISTS (SELECT 1 FROM pragma_index_list(m.name) AS l, "
    "pragma_index_xinfo(l.name) "
    "AS x WHERE x.seqno = 0 AND x.name = c.name AND x.coll = 'NOCASE' AND l.partial = 0) "
    "FROM main.sqlite_master AS m, pragma_table_info(m.name) AS c WHERE m.type = 'table' AND m.rootpage > 0";

bool leggiColonne(sqlite3* db, std::vector<Colonna>& colonne) {
  return perOgniRiga(db, kColonne, [&](sqlite3_stmt* riga) {
    colonne.push_back({testo(riga, 0), testo(riga, 1), testo(riga, 2), sqlite3_column_int(riga, 3) != 0});
  });
}

/// Does the column itself compare as text and without regard to case? A range on any other column would lose
/// rows that the pattern takes.
bool testoSenzaMaiuscole(sqlite3* db, const Colonna& colonna) {
  const char* collazione = nullptr;
  const int esito = sqlite3_table_column_metadata(db, "main", colonna.tabella.c_str(), colonna.nome.c_str(),
                                                  nullptr, &collazione, nullptr, nullptr, nullptr);
  return esito == SQLITE_OK && collazione != nullptr && UgualiSenzaMaiuscole(collazione, "NOCASE") &&
         UgualiSenzaMaiuscole(colonna.tipo, "TEXT");
}

void riempiDizionario(sqlite3* db, const std::vector<Colonna>& colonne, Dizionario& dizionario) {
  Dizionario inadatte;
  for (const Colonna& colonna : colonne)
    if (!testoSenzaMaiuscole(db, colonna)) inadatte.aggiungi(colonna.nome);
  for (const Colonna& colonna : colonne)
    if (colonna.inTestaAIndice && !inadatte.prefisso(colonna.nome)) dizionario.aggiungi(colonna.nome);
}

std::string traVirgolette(const std::string& nome) {
  std::string testo = "\"";
  for (const char c : nome) testo.append(c == '"' ? 2 : 1, c);
  return testo + '"';
}

std::string creaGuardia(const Colonna& colonna, const char* evento, const char* nome) {
  const std::string campo = traVirgolette(colonna.nome);
  const std::string tabella = traVirgolette(colonna.tabella);
  const std::string forma = std::string(kFunzioneData) + "(new." + campo + ")";
  return "CREATE TEMP TRIGGER IF NOT EXISTS " + traVirgolette(nome + colonna.tabella + "." + colonna.nome) +
         " AFTER " + evento + " ON main." + tabella + " WHEN new." + campo + " IS NOT " + forma +
         " BEGIN UPDATE " + tabella + " SET " + campo + " = " + forma + " WHERE rowid = new.rowid; END;";
}

/// The guards live in the connection, not in the file: a file that the user takes elsewhere opens anywhere.
bool guarda(sqlite3* db, const Colonna& colonna) {
  const std::string aggiornata = "UPDATE OF " + traVirgolette(colonna.nome);
  const std::string sql =
      creaGuardia(colonna, "INSERT", "inserita ") + creaGuardia(colonna, aggiornata.c_str(), "aggiornata ");
  return sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

}  // namespace

bool TipoData(std::string_view tipo) {
  return UgualiSenzaMaiuscole(tipo, "DATETIME") || UgualiSenzaMaiuscole(tipo, "DATE");
}

bool LeggiSchema(sqlite3* db, Dizionario& dizionario) {
  std::vector<Colonna> colonne;
  dizionario.svuota();
  if (!leggiColonne(db, colonne)) return false;
  riempiDizionario(db, colonne, dizionario);
  for (const Colonna& colonna : colonne)
    if (TipoData(colonna.tipo) && !guarda(db, colonna)) return false;
  return true;
}

}  // namespace store
