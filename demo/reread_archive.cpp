#include "demo/reread_archive.h"

#include <QFile>

#include "demo/database_reader.h"

RereadArchive rereadArchive(const QString& file) {
  const DatabaseReader database(QFile::encodeName(file).toStdString());
  RereadArchive archive;
  database.read("select count(*) from TAB_ARTICOLI where Descrizione <> ''",
                [&](const DatabaseReader::Row& row) { archive.articles = row.integer(0); });
  database.read(
      "select auto_id, Codice_EAN, Codice_Articolo, Descrizione, Prezzo, Reparto from TAB_ARTICOLI order by "
      "auto_id",
      [&](const DatabaseReader::Row& row) {
        archive.slot.push_back(
            {row.integer(0), row.text(1), row.text(2), row.text(3), row.integer(4), row.integer(5)});
      });
  database.read(
      "select id_plu, Importo_giornaliero, Tot_giorn_articoli_venduti, sconto_giornaliero, Codice_EAN, "
      "Codice_Articolo from TAB_VENDUTO order by rowid",
      [&](const DatabaseReader::Row& row) {
        archive.received.push_back(
            {{row.integer(0), row.integer(1), row.integer(2), row.integer(3)}, row.text(4), row.text(5)});
      });
  return archive;
}
