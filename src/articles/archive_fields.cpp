#include "articles/archive_fields.h"

#include "core/conversions.h"
#include "core/key_filters.h"
#include "core/state.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

constexpr QChar kVirgola = u',';

QString messaggioReparto() {
  return QStringLiteral("Attenzione il reparto deve essere compreso tra 1 e ") +
         QString::number(kRepartoMassimo) + QStringLiteral(" !!!!");
}

bool siONo(const QString& testo) {
  return siNo(testo) || testo == QLatin1String("N") || testo == QLatin1String("n");
}

}  // namespace

std::optional<Rejection> controllaPrezzo(const QString& testo) {
  const QString zero = QStringLiteral("0");
  if (testo.count(kVirgola) > 1) return Rejection{QString::fromUtf16(kValoreNonNumerico), zero};
  QString copia = testo;
  if (TestoInValore(copia) > kPrezzoMassimo)
    return Rejection{QStringLiteral("Attenzione il valore immesso > 99999.99!"), zero};
  return std::nullopt;
}

std::optional<Rejection> controllaReparto(const QString& testo) {
  const double reparto = Val(testo);
  if (reparto > kRepartoMassimo || reparto < 0) return Rejection{messaggioReparto(), {}};
  return std::nullopt;
}

std::vector<CampoRifiutato> CampiRifiutati(const CampiArticolo& campi) {
  std::vector<CampoRifiutato> rifiutati;
  if (campi.descrizione.isEmpty())
    rifiutati.push_back(
        {kColonnaDescrizione, QStringLiteral("Attenzione il campo DESCRIZIONE non e' valorizzato")});
  if (campi.prezzo.isEmpty())
    rifiutati.push_back({kColonnaPrezzo, QStringLiteral("Attenzione il campo PREZZO non e' valorizzato")});
  const double reparto = Val(campi.reparto);
  if (reparto > kRepartoMassimo || reparto <= 0) rifiutati.push_back({kColonnaReparto, messaggioReparto()});
  if (!siONo(campi.varPrezzo))
    rifiutati.push_back({kColonnaVarPrezzo, QStringLiteral("Attenzione var.prezzo deve essere S/s o N/n")});
  return rifiutati;
}

std::int16_t CheckCampiArticolo(const CampiArticolo& campi, Utente& utente) {
  const std::vector<CampoRifiutato> rifiutati = CampiRifiutati(campi);
  for (const CampoRifiutato& uno : rifiutati) utente.MsgBox(uno.messaggio, Icon::Information);
  return rifiutati.empty() ? kFalso : kVero;
}

}  // namespace articles
