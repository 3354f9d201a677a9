#include "demo/archivio_riletto.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

namespace {

using Base = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

Base apri(const QString& file) {
  sqlite3* aperta = nullptr;
  const int esito = sqlite3_open_v2(file.toUtf8().constData(), &aperta, SQLITE_OPEN_READONLY, nullptr);
  Base base(aperta, sqlite3_close);
  if (esito != SQLITE_OK) throw std::runtime_error("archive not readable");
  return base;
}

template <typename Riga>
void leggi(const Base& base, const char* sql, Riga&& riga) {
  sqlite3_stmt* preparata = nullptr;
  if (sqlite3_prepare_v2(base.get(), sql, -1, &preparata, nullptr) != SQLITE_OK)
    throw std::runtime_error(sqlite3_errmsg(base.get()));
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> frase(preparata, sqlite3_finalize);
  while (sqlite3_step(preparata) == SQLITE_ROW) riga(preparata);
}

std::string testo(sqlite3_stmt* frase, int colonna) {
  const auto* byte = sqlite3_column_text(frase, colonna);
  return byte == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(byte));
}

void aggiungiVenduto(ArchivioRiletto& archivio, sqlite3_stmt* frase) {
  const int slot = sqlite3_column_int(frase, 0);
  archivio.venduto[slot] = {slot, sqlite3_column_int(frase, 1), sqlite3_column_int(frase, 2),
                            sqlite3_column_int(frase, 3)};
  archivio.codici[slot] = {testo(frase, 4), testo(frase, 5)};
  ++archivio.righe;
}

void aggiungiSlot(ArchivioRiletto& archivio, sqlite3_stmt* frase) {
  archivio.slot.push_back({sqlite3_column_int(frase, 0), testo(frase, 1), testo(frase, 2), testo(frase, 3),
                           sqlite3_column_int(frase, 4), sqlite3_column_int(frase, 5)});
}

}  // namespace

ArchivioRiletto rileggiArchivio(const QString& file) {
  const Base base = apri(file);
  ArchivioRiletto archivio;
  leggi(base, "select count(*) from TAB_ARTICOLI where Descrizione <> ''",
        [&](sqlite3_stmt* frase) { archivio.articoli = sqlite3_column_int(frase, 0); });
  leggi(
      base,
      "select auto_id, Codice_EAN, Codice_Articolo, Descrizione, Prezzo, Reparto from TAB_ARTICOLI order by "
      "auto_id",
      [&](sqlite3_stmt* frase) { aggiungiSlot(archivio, frase); });
  leggi(base,
        "select id_plu, Importo_giornaliero, Tot_giorn_articoli_venduti, sconto_giornaliero, Codice_EAN, "
        "Codice_Articolo from TAB_VENDUTO",
        [&](sqlite3_stmt* frase) { aggiungiVenduto(archivio, frase); });
  return archivio;
}
