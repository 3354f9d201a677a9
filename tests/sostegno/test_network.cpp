#include "sostegno/test_network.h"

NetworkStartup TestNetwork::start() {
  steps << QStringLiteral("avvia");
  return startup;
}

int TestNetwork::close() {
  steps << QStringLiteral("chiudi");
  return closing;
}

QString TestNetwork::computerName() {
  steps << QStringLiteral("nome");
  return name;
}

QStringList TestNetwork::localAddresses(const QString& ofName) {
  steps << QStringLiteral("indirizzi di ") + ofName;
  return addresses;
}

int TestNetwork::echo(const QString& address, const QByteArray& data, int milliseconds) {
  steps << QStringLiteral("eco %1 %2 %3").arg(address, QString::fromLatin1(data)).arg(milliseconds);
  return echoStatus ? *echoStatus : systemNetwork().echo(address, data, milliseconds);
}
