#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>

#include "platform/serial/serial_port.h"

namespace serial {

namespace {
constexpr int kBefore = 1;
constexpr int kLast = 16;
}  // namespace

QStringList listPorts() {
  QStringList paths;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) paths.append(port.systemLocation());
  return paths;
}

QString portPath(int number, const QString& folder) {
  if (number < kBefore || number > kLast) return {};
  QString link = QDir(folder).filePath(QStringLiteral("Porte/COM%1").arg(number));
  const QFileInfo entry(link);
  if (entry.exists() || entry.isSymLink()) return link;
  return listPorts().value(number - kBefore);
}

}  // namespace serial
