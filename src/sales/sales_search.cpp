#include "sales/sales_search.h"

namespace sales {

store::Statement StatementTutti() {
  return store::Statement(
      u"SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,Tot_giorn_articoli_venduti,"
      u"Sconto_giornaliero from TAB_VENDUTO ORDER BY DATA, Codice_EAN ASC");
}

store::Statement StatementCerca(const FiltroVenduto& filtro) {
  // Without the discounts, as the filtered list has always been: "Visualizza Tutti" shows them.
  store::Statement istruzione =
      u"SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,Tot_giorn_articoli_venduti "
      u"from TAB_VENDUTO "
      u"WHERE (Data >= '" +
      store::text(filtro.inizio) + u"' AND Data <= '" + store::text(filtro.fine) + u"') ";
  if (!filtro.ean.isEmpty()) istruzione += store::beginsWith(u" AND Codice_EAN like '", filtro.ean);
  if (!filtro.descrizione.isEmpty())
    istruzione += store::beginsWith(u" AND Descrizione like '", filtro.descrizione);
  istruzione += u" ORDER BY Data, Codice_EAN ASC";
  return istruzione;
}

}  // namespace sales
