#include "articles/import_line.h"

#include <QStringList>

#include "core/conversioni.h"

namespace articles {

namespace {

constexpr qsizetype kSeparatoriRiga = 8;
constexpr std::int32_t kPosizioneMassima = 50000;
// The sums of StatoImport up to this one mark the row.
constexpr std::int16_t kStatoErrMassimo = 6;

QString conPredefinito(const QString& campo, const QString& predefinito) {
  return campo.isEmpty() ? predefinito : campo;
}

}  // namespace

std::int16_t PutArticolo(const QString& riga, CampiImport& campi) {
  if (riga.count(u';') != kSeparatoriRiga) return kSeparatori;
  const QStringList parti = riga.split(u';');
  if (parti[0].isEmpty()) return kPosizione;
  campi.auto_id = TestoInIntero16(parti[0]);
  if (campi.auto_id > kPosizioneMassima || campi.auto_id < 0) return kPosizione;
  const QString zero = QStringLiteral("0");
  campi.Codice_EAN = parti[1];
  campi.Codice_Articolo = conPredefinito(parti[2], zero);
  campi.Descrizione = parti[3];
  campi.Prezzo = conPredefinito(parti[4], zero);
  campi.Reparto = conPredefinito(parti[5], zero);
  if (parti[1].isEmpty()) return kEanAssente;
  if (parti[2].isEmpty()) return kArticoloAssente;
  if (parti[3].isEmpty()) return kDescrizioneAssente;
  return parti[5].isEmpty() ? kRepartoAssente : kRigaSana;
}

QString TestaIstruzione(const CampiImport& campi) {
  return QStringLiteral("UPDATE TAB_ARTICOLI SET ") + QStringLiteral(" Codice_ean ='") + campi.Codice_EAN +
         QStringLiteral("',") + QStringLiteral(" Codice_Articolo ='") + campi.Codice_Articolo +
         QStringLiteral("',") + QStringLiteral("Descrizione ='") + campi.Descrizione + QStringLiteral("',") +
         QStringLiteral("Prezzo =") + QString::number(TestoInCent(campi.Prezzo)) + u',' +
         QStringLiteral("Reparto =") + campi.Reparto + u',';
}

QString CodaIstruzione(std::int16_t StatoImport, std::int16_t auto_id) {
  if (StatoImport > kStatoErrMassimo) return {};
  return (StatoImport == kStatoPulito ? QStringLiteral("Filler =' '") : QStringLiteral("Filler ='ERR'")) +
         QStringLiteral(" WHERE auto_id =") + QString::number(auto_id);
}

}  // namespace articles
