#include "articles/import_line.h"

#include <array>

#include "core/conversions.h"

namespace articles {

namespace {

constexpr qsizetype kSeparatoriRiga = 8;
constexpr std::int32_t kPosizioneMassima = 50000;
// The sums of StatoImport up to this one mark the row.
constexpr std::int16_t kStatoErrMassimo = 6;

using Parti = std::array<QStringView, kSeparatoriRiga + 1>;

/// The fields of a line of as many separators as `Parti` asks for, without a copy.
Parti dividi(QStringView riga) {
  Parti parti;
  for (QStringView& parte : parti) {
    const qsizetype fine = riga.indexOf(u';');
    parte = fine < 0 ? riga : riga.first(fine);
    riga = riga.sliced(fine < 0 ? riga.size() : fine + 1);
  }
  return parti;
}

QString conPredefinito(QStringView campo) {
  return campo.isEmpty() ? QStringLiteral("0") : campo.toString();
}

}  // namespace

std::int16_t PutArticolo(const QString& riga, CampiImport& campi) {
  if (riga.count(u';') != kSeparatoriRiga) return kSeparatori;
  const Parti parti = dividi(riga);
  if (parti[0].isEmpty()) return kPosizione;
  campi.auto_id = TestoInIntero16(parti[0].toString());
  // A 16-bit number never gets there: kept for the day when the slots need more bits.
  const std::int32_t posizione = campi.auto_id;
  if (posizione > kPosizioneMassima || posizione < 0) return kPosizione;
  campi.Codice_EAN = parti[1].toString();
  campi.Codice_Articolo = conPredefinito(parti[2]);
  campi.Descrizione = parti[3].toString();
  campi.Prezzo = conPredefinito(parti[4]);
  campi.Reparto = conPredefinito(parti[5]);
  if (parti[1].isEmpty()) return kEanAssente;
  if (parti[2].isEmpty()) return kArticoloAssente;
  if (parti[3].isEmpty()) return kDescrizioneAssente;
  return parti[5].isEmpty() ? kRepartoAssente : kRigaSana;
}

store::Statement TestaIstruzione(const CampiImport& campi) {
  return u"UPDATE TAB_ARTICOLI SET "
         u" Codice_ean ='" +
         store::text(campi.Codice_EAN) +
         u"',"
         u" Codice_Articolo ='" +
         store::text(campi.Codice_Articolo) +
         u"',"
         u"Descrizione ='" +
         store::text(campi.Descrizione) +
         u"',"
         u"Prezzo =" +
         store::number(std::int64_t{TestoInCent(campi.Prezzo)}) +
         u","
         u"Reparto =" +
         store::number(campi.Reparto) + u",";
}

store::Statement CodaIstruzione(std::int16_t StatoImport, std::int16_t auto_id) {
  if (StatoImport > kStatoErrMassimo) return {};
  const store::Statement marchio =
      StatoImport == kStatoPulito ? store::Statement(u"Filler =' '") : store::Statement(u"Filler ='ERR'");
  return marchio + u" WHERE auto_id =" + store::number(std::int64_t{auto_id});
}

}  // namespace articles
