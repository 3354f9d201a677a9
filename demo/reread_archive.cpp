#include "demo/reread_archive.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

namespace {

using Base = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

Base open(const QString& file) {
  sqlite3* open = nullptr;
  const int outcome = sqlite3_open_v2(file.toUtf8().constData(), &open, SQLITE_OPEN_READONLY, nullptr);
  Base base(open, sqlite3_close);
  if (outcome != SQLITE_OK) throw std::runtime_error("archive not readable");
  return base;
}

template <typename Row>
void read(const Base& base, const char* sql, Row&& row) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(base.get(), sql, -1, &prepared, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(base.get()));
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> sentence(prepared, sqlite3_finalize);
  while (sqlite3_step(prepared) == SQLITE_ROW) row(prepared);
}

std::string text(sqlite3_stmt* sentence, int column) {
  const auto* byte = sqlite3_column_text(sentence, column);
  return byte == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(byte));
}

void addSales(RereadArchive& archive, sqlite3_stmt* sentence) {
  const int slot = sqlite3_column_int(sentence, 0);
  archive.sales[slot] = {slot, sqlite3_column_int(sentence, 1), sqlite3_column_int(sentence, 2),
                         sqlite3_column_int(sentence, 3)};
  archive.codes[slot] = {text(sentence, 4), text(sentence, 5)};
  ++archive.rows;
}

void addSlot(RereadArchive& archive, sqlite3_stmt* sentence) {
  archive.slot.push_back({sqlite3_column_int(sentence, 0), text(sentence, 1), text(sentence, 2),
                          text(sentence, 3), sqlite3_column_int(sentence, 4),
                          sqlite3_column_int(sentence, 5)});
}

}  // namespace

RereadArchive rereadArchive(const QString& file) {
  const Base base = open(file);
  RereadArchive archive;
  read(base, "select count(*) from TAB_ARTICOLI where Descrizione <> ''",
       [&](sqlite3_stmt* sentence) { archive.articles = sqlite3_column_int(sentence, 0); });
  read(base,
       "select auto_id, Codice_EAN, Codice_Articolo, Descrizione, Prezzo, Reparto from TAB_ARTICOLI order by "
       "auto_id",
       [&](sqlite3_stmt* sentence) { addSlot(archive, sentence); });
  read(base,
       "select id_plu, Importo_giornaliero, Tot_giorn_articoli_venduti, sconto_giornaliero, Codice_EAN, "
       "Codice_Articolo from TAB_VENDUTO",
       [&](sqlite3_stmt* sentence) { addSales(archive, sentence); });
  return archive;
}
