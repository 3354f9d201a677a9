#pragma once

#include <QStringList>
#include <optional>

#include "platform/net/network.h"

/// A PC with the name and the addresses that a test gives it; its echo is the real one, counted. `echoStatus`
/// stands in for a till that is there and silent, which no loopback address can be.
class TestNetwork : public Network {
 public:
  NetworkStartup startup;
  int closing = 0;
  QString name = QStringLiteral("cassiera");
  QStringList addresses{QStringLiteral("10.1.2.3")};
  std::optional<int> echoStatus;
  /// What was asked of it, in order.
  QStringList steps;

  NetworkStartup start() override;
  int close() override;
  QString computerName() override;
  QStringList localAddresses(const QString& ofName) override;
  int echo(const QString& address, const QByteArray& data, int milliseconds) override;
};
