#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

/// What the platform's socket layer says of itself when it is started. On POSIX there is nothing to start:
/// the values of a layer that serves everything.
struct NetworkStartup {
  bool answers = true;
  int version = 1;
  int subversion = 1;
  /// How many sockets a process may have.
  int socket = 32767;
};

/// What a link screen asks of the network. Virtual so that tests can stand a PC with two addresses, or with
/// no name, before the screens; the program and the road tests use `systemNetwork()`.
class Network {
 public:
  virtual ~Network() = default;
  /// Start and end of the platform's socket layer, around the two look-ups. `close` returns 0 or the
  /// platform's error code.
  virtual NetworkStartup start() { return {}; }
  virtual int close() { return 0; }
  /// Name of this computer; nothing (-1 of the platform) gives "<Error>".
  virtual QString computerName() = 0;
  /// The computer's own IPv4 addresses in dotted form, loopback aside; the host name's look-up where there
  /// are none. `name` that does not resolve then gives the single entry "<error>".
  virtual QStringList localAddresses(const QString& name) = 0;
  /// One echo with the given payload. Returns -1 if the address does not convert or no echo can be sent, 0 if
  /// it was answered in time, another number if not.
  virtual int echo(const QString& address, const QByteArray& data, int milliseconds) = 0;
};

Network& systemNetwork();
