#include "bench/archivi_pieni.h"

#include <QString>
#include <string>

#include "bench/base_sqlite.h"
#include "demo/attese.h"

namespace pieni {

namespace {

void lega(sqlite3_stmt* frase, int posto, const std::string& byte) {
  const QByteArray utf8 = QString::fromLatin1(byte.data(), static_cast<int>(byte.size())).toUtf8();
  sqlite3_bind_text(frase, posto, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

}  // namespace

void articoli(Banco& banco, int righe, bool quasiSenzaEan) {
  banco.chiudi();
  base::Sqlite sqlite(banco.archivio());
  const auto elenco = attese::leggiElenco(std::string(GESTIONALE_APP) + "/articoli.csv");
  sqlite3_stmt* frase = sqlite.prepara(
      "UPDATE TAB_ARTICOLI SET Codice_EAN=?,Codice_Articolo=?,Descrizione=?,Prezzo=?,Reparto=?,Filler=' ' "
      "WHERE auto_id=?");
  sqlite.esegui("BEGIN");
  for (int i = 0; i < righe; ++i) {
    const auto& uno = elenco[static_cast<std::size_t>(i) % elenco.size()];
    lega(frase, 1, uno.ean);
    lega(frase, 2, uno.codice);
    lega(frase, 3, uno.descrizione);
    sqlite3_bind_int(frase, 4, uno.prezzo);
    sqlite3_bind_int(frase, 5, uno.reparto);
    sqlite3_bind_int(frase, 6, i + 1);
    sqlite.passo(frase);
  }
  if (quasiSenzaEan) sqlite.esegui("UPDATE TAB_ARTICOLI SET Codice_EAN='' WHERE auto_id > 100");
  sqlite.esegui("COMMIT");
}

void venduto(Banco& banco, int righe) {
  banco.chiudi();
  base::Sqlite sqlite(banco.archivio());
  sqlite.esegui(("INSERT INTO TAB_VENDUTO WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n "
                 "WHERE i + 1 < " +
                 std::to_string(righe) +
                 ") SELECT 20260901 + i % 30, a.auto_id, a.Codice_Articolo, a.Codice_EAN, a.Descrizione, "
                 "100 + i % 5000, i % 50, 1 + i % 9 FROM n JOIN TAB_ARTICOLI a ON a.auto_id = 1 + i % 5000")
                    .c_str());
}

}  // namespace pieni
