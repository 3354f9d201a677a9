#pragma once

#include <QString>
#include <functional>
#include <thread>

#include "ecrcom/socket.h"

/// A peer that answers at an address of its own in whatever way a test wants: what listens where a till is
/// expected and is none. Serves one connection after the other in a thread of its own.
class FintaTill {
 public:
  /// `tratta` runs with each connection; the line is cut when it returns.
  explicit FintaTill(std::function<void(const ecrcom::Socket&)> tratta);
  ~FintaTill();
  FintaTill(const FintaTill&) = delete;
  FintaTill& operator=(const FintaTill&) = delete;

  QString address() const { return address_; }

 private:
  void serve();

  QString address_;
  std::function<void(const ecrcom::Socket&)> tratta_;
  ecrcom::Socket listener_;
  std::thread thread_;
};

/// A socket bound to an own address and listening, with room for `tail` connections nobody takes.
ecrcom::Socket inListener(const QString& address, int tail);
/// Reads away what comes until the other side closes.
void waitClosing(const ecrcom::Socket& connection);
