#include "customers/vat_number.h"

namespace customers {

namespace {

constexpr std::int16_t kAccettata = 0;
constexpr std::int16_t kRifiutata = 1;
constexpr int kPrefissoNazione = 2;
/// From 0: the office code behind the seven digits of the holder, and the check digit behind both.
constexpr int kInizioUfficio = 7;
constexpr int kCifreUfficio = 3;
constexpr int kUltimoUfficio = 121;
constexpr int kControllo = kCifrePartitaIVA - 1;
constexpr int kBase = 10;

int cifra(const QString& numero, int posto) {
  const QChar carattere = numero.at(posto);
  return carattere >= u'0' && carattere <= u'9' ? carattere.unicode() - u'0' : 0;
}

/// Empty for a text that cannot be one.
QString undiciCifre(const QString& testo) {
  const QString senzaNazione = testo.size() > kCifrePartitaIVA ? testo.mid(kPrefissoNazione) : testo;
  QString numero = senzaNazione.rightJustified(kCifrePartitaIVA, u'0');
  return numero.size() == kCifrePartitaIVA ? numero : QString();
}

int ufficio(const QString& numero) {
  int codice = 0;
  for (int posto = kInizioUfficio; posto < kInizioUfficio + kCifreUfficio; ++posto)
    codice = codice * kBase + cifra(numero, posto);
  return codice;
}

int cifraDiControllo(const QString& numero) {
  int somma = 0;
  for (int posto = 0; posto < kControllo; ++posto) {
    const int valore = cifra(numero, posto);
    if (posto % 2 == 0) {
      somma += valore;
      continue;
    }
    const int doppio = 2 * valore;
    somma += doppio / kBase + doppio % kBase;
  }
  return (kBase - somma % kBase) % kBase;
}

}  // namespace

std::int16_t CheckPartitaIVA(const QString& testo) {
  const QString numero = undiciCifre(testo);
  if (numero.isEmpty()) return kRifiutata;
  if (numero == QStringLiteral("00000000000")) return kAccettata;
  if (ufficio(numero) > kUltimoUfficio) return kRifiutata;
  return cifra(numero, kControllo) == cifraDiControllo(numero) ? kAccettata : kRifiutata;
}

}  // namespace customers
