#include "core/figures.h"

#include <QLocale>

namespace {
constexpr quint64 kCento = 100;
constexpr int kDecimali = 2;
}  // namespace

QString cifra(qint64 valore) {
  return QLocale(QLocale::Italian).toString(valore);
}

QString euro(qint64 centesimi) {
  const bool negativo = centesimi < 0;
  const quint64 quanti = negativo ? -static_cast<quint64>(centesimi) : static_cast<quint64>(centesimi);
  const QString decimali = QString::number(quanti % kCento).rightJustified(kDecimali, u'0');
  return QStringLiteral("€\u00A0%1%2,%3")
      .arg(negativo ? QStringLiteral("-") : QString(), QLocale(QLocale::Italian).toString(quanti / kCento),
           decimali);
}

QString quanti(qint64 valore, const QString& uno, const QString& molti) {
  return cifra(valore) + u' ' + (valore == 1 ? uno : molti);
}
