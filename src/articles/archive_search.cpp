#include "articles/archive_search.h"

#include <QStringList>

#include "core/conversions.h"

namespace articles {

namespace {

constexpr double kCentesimi = 100;
/// Digits of a number in a statement: enough for every price, and 19.99 times 100 is 1999 with them.
constexpr int kCifre = 15;

QString numero(double valore) {
  return QString::number(valore, 'g', kCifre);
}

QString simile(const QString& inizio, const QString& testo) {
  return inizio + testo + QStringLiteral("*'");
}

QStringList frammenti(const CampiArticolo& campi) {
  QStringList condizioni;
  if (!campi.ean.isEmpty()) condizioni += simile(QStringLiteral("  Codice_EAN LIKE '"), campi.ean);
  if (!campi.codice.isEmpty()) condizioni += simile(QStringLiteral(" Codice_Articolo like '"), campi.codice);
  if (!campi.descrizione.isEmpty())
    condizioni += simile(QStringLiteral(" Descrizione like '"), campi.descrizione);
  if (!campi.prezzo.isEmpty())
    condizioni += QStringLiteral(" Prezzo >=") + numero(Val(campi.prezzo) * kCentesimi) + u' ';
  if (!campi.reparto.isEmpty()) condizioni += QStringLiteral(" Reparto =") + numero(Val(campi.reparto));
  return condizioni;
}

}  // namespace

QString IstruzioneRicerca(const CampiArticolo& campi) {
  QString tutti = QStringLiteral(
      "SELECT id_position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from TAB_ARTICOLI ");
  const QStringList condizioni = frammenti(campi);
  if (condizioni.isEmpty()) return tutti;
  return tutti + QStringLiteral(" WHERE ") + condizioni.join(QStringLiteral(" AND ")) +
         QStringLiteral(" ORDER BY Codice_EAN ASC");
}

}  // namespace articles
