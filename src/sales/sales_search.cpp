#include "sales/sales_search.h"

namespace sales {

namespace {

QString condizione(const QString& colonna, const QString& testo) {
  return testo.isEmpty()
             ? QString()
             : QStringLiteral(" AND ") + colonna + QStringLiteral(" like '") + testo + QStringLiteral("*'");
}

}  // namespace

QString StatementTutti() {
  return QStringLiteral(
      "SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,Tot_giorn_articoli_venduti,"
      "Sconto_giornaliero from TAB_VENDUTO ORDER BY DATA, Codice_EAN ASC");
}

QString StatementCerca(const FiltroVenduto& filtro) {
  // Without the discounts, as the filtered list has always been: "Visualizza Tutti" shows them.
  return QStringLiteral(
             "SELECT Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
             "Tot_giorn_articoli_venduti from TAB_VENDUTO WHERE (Data >= '") +
         filtro.inizio + QStringLiteral("' AND Data <= '") + filtro.fine + QStringLiteral("') ") +
         condizione(QStringLiteral("Codice_EAN"), filtro.ean) +
         condizione(QStringLiteral("Descrizione"), filtro.descrizione) +
         QStringLiteral(" ORDER BY Data, Codice_EAN ASC");
}

}  // namespace sales
