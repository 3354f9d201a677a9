#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>

#include "platform/serial/porta_seriale.h"

namespace serial {

namespace {
constexpr int kPrima = 1;
constexpr int kUltima = 16;
}  // namespace

QStringList elencoPorte() {
  QStringList percorsi;
  for (const QSerialPortInfo& porta : QSerialPortInfo::availablePorts())
    percorsi.append(porta.systemLocation());
  return percorsi;
}

QString percorsoPorta(int numero, const QString& cartella) {
  if (numero < kPrima || numero > kUltima) return {};
  const QString collegamento = QDir(cartella).filePath(QStringLiteral("Porte/COM%1").arg(numero));
  const QFileInfo voce(collegamento);
  if (voce.exists() || voce.isSymLink()) return collegamento;
  return elencoPorte().value(numero - kPrima);
}

}  // namespace serial
