#include "bench/filled_archives.h"

#include <QString>
#include <string>

#include "bench/sqlite_base.h"
#include "demo/expectations.h"

namespace filled {

namespace {

void bind(sqlite3_stmt* sentence, int place, const std::string& byte) {
  const QByteArray utf8 = QString::fromLatin1(byte.data(), static_cast<int>(byte.size())).toUtf8();
  sqlite3_bind_text(sentence, place, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

}  // namespace

void articles(Bench& bench, int rows, bool nearlyWithoutEan) {
  bench.close();
  base::Sqlite sqlite(bench.archive());
  const auto list = expectations::readList(std::string(GESTIONALE_APP) + "/articoli.csv");
  sqlite3_stmt* sentence = sqlite.prepare(
      "UPDATE TAB_ARTICOLI SET Codice_EAN=?,Codice_Articolo=?,Descrizione=?,Prezzo=?,Reparto=?,Filler=' ' "
      "WHERE auto_id=?");
  sqlite.run("BEGIN");
  for (int i = 0; i < rows; ++i) {
    const auto& one = list[static_cast<std::size_t>(i) % list.size()];
    bind(sentence, 1, one.ean);
    bind(sentence, 2, one.code);
    bind(sentence, 3, one.description);
    sqlite3_bind_int(sentence, 4, one.price);
    sqlite3_bind_int(sentence, 5, one.department);
    sqlite3_bind_int(sentence, 6, i + 1);
    sqlite.step(sentence);
  }
  if (nearlyWithoutEan) sqlite.run("UPDATE TAB_ARTICOLI SET Codice_EAN='' WHERE auto_id > 100");
  sqlite.run("COMMIT");
}

void sales(Bench& bench, int rows) {
  bench.close();
  base::Sqlite sqlite(bench.archive());
  sqlite.run(("INSERT INTO TAB_VENDUTO WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n "
              "WHERE i + 1 < " +
              std::to_string(rows) +
              ") SELECT 20260901 + i % 30, a.auto_id, a.Codice_Articolo, a.Codice_EAN, a.Descrizione, "
              "100 + i % 5000, i % 50, 1 + i % 9 FROM n JOIN TAB_ARTICOLI a ON a.auto_id = 1 + i % 5000")
                 .c_str());
}

}  // namespace filled
