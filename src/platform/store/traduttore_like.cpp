#include "platform/store/modello_like.h"
#include "platform/store/traduttore.h"

namespace store {

namespace {

/// The least text beyond all those that begin with `prefisso` in the NOCASE collation, which compares small
/// letters.
std::string oltreIlPrefisso(std::string_view prefisso) {
  std::string oltre(prefisso);
  char& ultimo = oltre.back();
  if (ultimo >= 'A' && ultimo <= 'Z') ultimo = static_cast<char>(ultimo + ('a' - 'A'));
  ultimo = static_cast<char>(ultimo + 1);
  return oltre;
}

}  // namespace

bool Traduttore::prefissoSuIndice(std::string_view prefisso) const {
  return !prefisso.empty() && !ultimoNome_.empty() && dizionario_.prefisso(ultimoNome_);
}

// The engine does not look into a pattern that is a parameter, and never into one of a LIKE of ours: the
// range that finds the rows by the index is spelled out in front of the pattern. The pattern decides.
void Traduttore::like(const Pezzo& pezzo) {
  const char apice = lessico_.sbircia();
  if (apice != '\'' && apice != '"') {
    ultimoNome_ = {};
    return scrivi("LIKE");
  }
  irripetibile_ = true;
  const Pezzo letterale = lessico_.prossimo();
  const std::string_view modello = contenuto(letterale);
  if (!ModelloValido(modello))
    throw ErroreDiSintassi(QStringLiteral("modello di LIKE non valido"), sorgente_, posizione(pezzo));
  const std::string_view prefisso = PrefissoFisso(modello);
  if (prefissoSuIndice(prefisso)) {
    const std::string colonna = esito_.sql.substr(inizioNome_);
    parametroTesto(prefisso);
    parametroTesto(conserva(oltreIlPrefisso(prefisso)));
    esito_.sql.insert(inizioNome_, "( ");
    scrivi(">= ? AND " + colonna + "< ? AND " + colonna + "LIKE ? )");
  } else {
    scrivi("LIKE ?");
  }
  parametroTesto(modello);
  ultimoNome_ = {};
  precedente_ = Parola::Nessuna;
}

}  // namespace store
