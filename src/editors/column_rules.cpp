#include "editors/column_rules.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "controls/FlexGrid.h"
#include "core/reactions.h"
#include "platform/error.h"

namespace editors {

namespace {

constexpr QChar kVirgola = u',';
const QString kRipiego = QStringLiteral("1");
const QString kZero = QStringLiteral("0");

/// A number that is too long for any is above every limit.
double valoreDi(QString testo) {
  try {
    return TestoInValore(testo);
  } catch (const Errore&) {
    return std::numeric_limits<double>::infinity();
  }
}

Esame nonZero() {
  return {kRipiego, QStringLiteral("Attenzione il valore non puo' essere 0")};
}

/// `testo` in upper case if it is one of the letters.
Esame lettera(const QString& testo, const QString& lettere, const QString& ripiego,
              const QString& messaggio) {
  const QString maiuscolo = testo.toUpper();
  if (maiuscolo.size() == 1 && lettere.contains(maiuscolo)) return {maiuscolo};
  return {ripiego, messaggio};
}

}  // namespace

Esame CheckNumero(const QString& testo, const Limite& limite) {
  if (testo.count(kVirgola) > 1) return {kRipiego, QString::fromUtf16(kValoreNonNumerico)};
  if (valoreDi(testo) > limite.valore)
    return {kRipiego, QStringLiteral("Attenzione il valore immesso > ") + QString::fromUtf16(limite.testo) +
                          QStringLiteral("!!!")};
  return {testo};
}

Esame CheckImporto(const QString& testo) {
  return CheckNumero(testo, kLimiteImporto);
}

Esame CheckPercentuale(const QString& testo) {
  return CheckNumero(testo, kLimitePercentuale);
}

Esame CheckUnoOtto(const QString& testo) {
  return testo == kZero ? nonZero() : CheckNumero(testo, kLimiteNumero);
}

Esame CheckReparto(const QString& testo) {
  if (testo == kZero) return nonZero();
  const double reparto = valoreDi(testo);
  if (reparto >= 1 && reparto <= kRepartoMassimoPLU) return {testo};
  return {kRipiego, QStringLiteral("Attenzione il reparto deve essere compreso tra 1 e 32!!!")};
}

Esame CheckTipoMS(const QString& testo) {
  return lettera(testo, QStringLiteral("MS"), QStringLiteral("S"),
                 QStringLiteral("Attenzione  deve essere  M o S !!!"));
}

Esame CheckTipoSN(const QString& testo) {
  return lettera(testo, QStringLiteral("SN"), QStringLiteral("N"),
                 QStringLiteral("Attenzione  deve essere  S o N !!!"));
}

bool salvabile(const QString& testo, const Regola& regola) {
  return !regola.daUno || valoreDi(testo) >= 1;
}

std::uint8_t TestoInUnByte(const QString& testo) {
  const std::int32_t valore = InteroArrotondato(Val(testo));
  if (valore < 0 || valore > std::numeric_limits<std::uint8_t>::max()) throw errors::overflow();
  return static_cast<std::uint8_t>(valore);
}

void DisponiGriglia(FlexGrid& griglia, const Tabella& tabella) {
  std::vector<elenco::Colonna> forme;
  std::ranges::transform(tabella.colonne, std::back_inserter(forme), &Colonna::forma);
  elenco::Disponi(griglia, forme);
  // One cell at a time is worked on here.
  griglia.setWholeRows(false);
  griglia.setFixedCols(1);
  griglia.setRows(static_cast<int>(tabella.famiglia.record) + 1);
}

void RiempiGriglia(FlexGrid& griglia, const Tabella& tabella, Utente& utente) {
  const QString prefisso = QLatin1String(tabella.riempimento) + u' ';
  const config::ImmagineProgrammazione& immagine = config::immagineProgrammazione();
  reazioni::prossimaIstruzione(utente, prefisso, [&] {
    griglia.Clear();
    for (std::size_t i = 0; i < tabella.famiglia.record; ++i) {
      const int riga = static_cast<int>(i) + 1;
      const config::RecordLetto record = immagine.record(tabella.famiglia, i);
      griglia.setTextMatrix(riga, 0, QString::number(riga));
      for (std::size_t j = 1; j < tabella.colonne.size(); ++j)
        griglia.setTextMatrix(riga, static_cast<int>(j), tabella.colonne[j].leggi(record));
    }
  });
}

void SalvaGriglia(const FlexGrid& griglia, const Tabella& tabella) {
  const config::Record blocco = config::immagineProgrammazione().blocco(tabella.famiglia);
  std::vector<std::uint8_t> nuovo(blocco.begin(), blocco.end());
  for (std::size_t i = 0; i < tabella.famiglia.record; ++i) {
    const config::Record record =
        config::Record(nuovo).subspan(i * tabella.famiglia.byte, tabella.famiglia.byte);
    for (std::size_t j = 1; j < tabella.colonne.size(); ++j)
      tabella.colonne[j].scrivi(record, griglia.TextMatrix(static_cast<int>(i) + 1, static_cast<int>(j)));
  }
  std::ranges::copy(nuovo, blocco.begin());
}

}  // namespace editors
