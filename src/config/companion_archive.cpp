#include "config/companion_archive.h"

#include <utility>

#include "articles/article_database.h"
#include "config/configuration_file.h"

namespace config {

ArchivioCompagno::ArchivioCompagno(const QString& configurazione, Contesto& contesto)
    : primaAperto_(varGlobal().DB_Articoli), primaNome_(varGlobal().NomeDB_Articoli) {
  articles::ApriDatabase(PercorsoCompagno(configurazione), contesto);
}

ArchivioCompagno::~ArchivioCompagno() {
  try {
    articles::ChiudiDatabase();
  } catch (const Errore&) {
    // What it had left to commit is undone; the work itself has told its own failures.
  }
  varGlobal().DB_Articoli = std::move(primaAperto_);
  varGlobal().NomeDB_Articoli = std::move(primaNome_);
}

}  // namespace config
