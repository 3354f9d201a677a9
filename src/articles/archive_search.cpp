#include "articles/archive_search.h"

#include <vector>

#include "core/conversions.h"

namespace articles {

namespace {

std::vector<store::Statement> frammenti(const CampiArticolo& campi) {
  std::vector<store::Statement> condizioni;
  if (!campi.ean.isEmpty()) condizioni.push_back(store::beginsWith(u"  Codice_EAN LIKE '", campi.ean));
  if (!campi.codice.isEmpty())
    condizioni.push_back(store::beginsWith(u" Codice_Articolo like '", campi.codice));
  if (!campi.descrizione.isEmpty())
    condizioni.push_back(store::beginsWith(u" Descrizione like '", campi.descrizione));
  if (!campi.prezzo.isEmpty())
    condizioni.push_back(u" Prezzo >=" + store::number(Val(campi.prezzo) * kCentesimi) + u" ");
  if (!campi.reparto.isEmpty()) condizioni.push_back(u" Reparto =" + store::number(Val(campi.reparto)));
  return condizioni;
}

}  // namespace

store::Statement IstruzioneRicerca(const CampiArticolo& campi) {
  store::Statement istruzione(
      u"SELECT id_position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from TAB_ARTICOLI ");
  const std::vector<store::Statement> condizioni = frammenti(campi);
  if (condizioni.empty()) return istruzione;
  store::Wording davanti = u" WHERE ";
  for (const store::Statement& condizione : condizioni) {
    istruzione += davanti;
    istruzione += condizione;
    davanti = u" AND ";
  }
  istruzione += u" ORDER BY Codice_EAN ASC";
  return istruzione;
}

}  // namespace articles
