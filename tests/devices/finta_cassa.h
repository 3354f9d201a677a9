#pragma once

#include <QString>
#include <functional>
#include <thread>

#include "ecrcom/presa.h"

/// A peer that answers at an address of its own in whatever way a test wants: what listens where a till is
/// expected and is none. Serves one connection after the other in a thread of its own.
class FintaCassa {
 public:
  /// `tratta` runs with each connection; the line is cut when it returns.
  explicit FintaCassa(std::function<void(const ecrcom::Presa&)> tratta);
  ~FintaCassa();
  FintaCassa(const FintaCassa&) = delete;
  FintaCassa& operator=(const FintaCassa&) = delete;

  QString indirizzo() const { return indirizzo_; }

 private:
  void servi();

  QString indirizzo_;
  std::function<void(const ecrcom::Presa&)> tratta_;
  ecrcom::Presa ascolto_;
  std::thread filo_;
};

/// A socket bound to an own address and listening, with room for `coda` connections nobody takes.
ecrcom::Presa inAscolto(const QString& indirizzo, int coda);
/// Reads away what comes until the other side closes.
void aspettaChiusura(const ecrcom::Presa& presa);
