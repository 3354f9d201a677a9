#include "core/key_filters.h"

namespace {

constexpr QChar kVirgola = u',';
constexpr int kDecimali = 2;

bool cifra(QChar tasto) {
  return tasto >= u'0' && tasto <= u'9';
}

bool modifica(QChar tasto) {
  return tasto == kBackspaceKey || tasto == kCutKey;
}

/// Characters behind the first comma; -1 without one.
qsizetype decimali(const QString& testo) {
  const qsizetype virgola = testo.indexOf(kVirgola);
  return virgola < 0 ? -1 : testo.size() - virgola - 1;
}

}  // namespace

bool accettaCifre(const QString&, QChar tasto) {
  return cifra(tasto) || modifica(tasto);
}

bool accettaImporto(const QString& testo, QChar tasto) {
  if (decimali(testo) >= kDecimali) return tasto == kBackspaceKey;
  return cifra(tasto) || tasto == kVirgola || modifica(tasto);
}

bool accettaImportoDecimale(const QString& testo, QChar tasto) {
  if (cifra(tasto)) return decimali(testo) < kDecimali;
  if (tasto == kVirgola) return !testo.contains(kVirgola);
  return modifica(tasto);
}

bool accettaSiNo(const QString&, QChar tasto) {
  return QStringLiteral("SNsn").contains(tasto) || modifica(tasto);
}

bool accettaMS(const QString&, QChar tasto) {
  return QStringLiteral("MSms").contains(tasto) || modifica(tasto);
}

QString motivoCifre(const QString&, QChar) {
  return QStringLiteral("Solo cifre");
}

QString motivoImporto(const QString& testo, QChar tasto) {
  if (decimali(testo) >= kDecimali)
    return QStringLiteral("I due decimali ci sono già: cancellare con Backspace, poi scrivere");
  if (tasto == u'.') return QStringLiteral("Per i decimali si scrive la virgola");
  return QStringLiteral("Solo cifre e virgola");
}

QString motivoImportoDecimale(const QString& testo, QChar tasto) {
  if (tasto == kVirgola) return QStringLiteral("La virgola c'è già");
  // A letter is refused for what it is, not for the decimals in front of it.
  return motivoImporto(cifra(tasto) ? testo : QString(), tasto);
}

QString motivoSiNo(const QString&, QChar) {
  return QStringLiteral("Solo S o N");
}

QString motivoMS(const QString&, QChar) {
  return QStringLiteral("Solo M o S");
}

bool siNo(const QString& testo) {
  return testo == QLatin1String("S") || testo == QLatin1String("s");
}
