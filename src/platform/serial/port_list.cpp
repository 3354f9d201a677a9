#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>

#include "platform/serial/serial_port.h"

namespace serial {

namespace {
constexpr int kBefore = 1;
constexpr int kLast = 16;

QString linkPath(int number, const QString& folder) {
  return QDir(folder).filePath(QStringLiteral("Porte/COM%1").arg(number));
}

bool isThere(const QString& link) {
  const QFileInfo entry(link);
  return entry.exists() || entry.isSymLink();
}

}  // namespace

QStringList listPorts() {
  QStringList paths;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) paths.append(port.systemLocation());
  return paths;
}

QString portPath(int number, const QString& folder) {
  if (number < kBefore || number > kLast) return {};
  const QString link = linkPath(number, folder);
  return isThere(link) ? link : listPorts().value(number - kBefore);
}

QList<int> presentPorts(const QString& folder) {
  const QStringList listed = listPorts();
  QList<int> numbers;
  for (int number = kBefore; number <= kLast; ++number) {
    const QString link = linkPath(number, folder);
    // A link that leads nowhere takes the place of the device all the same.
    if (QFileInfo::exists(isThere(link) ? link : listed.value(number - kBefore))) numbers.append(number);
  }
  return numbers;
}

}  // namespace serial
