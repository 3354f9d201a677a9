#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <cstdint>
#include <memory>
#include <vector>

#include "ecrsim/simulatore.h"

/// A loopback address of the test's own, 127.x.y.z and never 127.0.0.1: another one at each call, another one
/// in each process. Nobody listens there until a Cassa does, but it answers an echo.
QString indirizzoProprio();

/// What a slot has sold. `posto` counts from 0: slot 0 is the article with auto_id 1.
struct Venduto {
  int posto = 0;
  std::int32_t importo = 0;
  std::int32_t pezzi = 0;
  std::int32_t sconto = 0;
};

/// The 60000 bytes of venduto.bin for these slots, all others zero.
QByteArray archivioVenduto(const std::vector<Venduto>& venduto);

/// A simulated till with a memory folder and an address of its own, listening while it lives.
class Cassa {
 public:
  /// Folder, and the address unless it was set, are the fixture's own; the rest of `opzioni` holds.
  explicit Cassa(ecrsim::Opzioni opzioni = {});

  ecrsim::Simulatore& operator*() { return *simulatore_; }
  ecrsim::Simulatore* operator->() { return simulatore_.get(); }
  QString indirizzo() const { return indirizzo_; }

  /// Path of a name in the till's memory.
  QString file(const QString& nome) const { return memoria_.filePath(nome); }
  bool esiste(const QString& nome) const;
  /// What stands in the memory under a name; fails the test if nothing does.
  QByteArray byte(const QString& nome) const;
  /// Lays a file into the memory.
  void metti(const QString& nome, const QByteArray& byte) const;
  /// Lays a venduto.bin with these slots into the memory.
  void venduto(const std::vector<Venduto>& venduto) const;
  /// Switches the till off: from now on the address refuses connections.
  void spegni() { simulatore_.reset(); }

 private:
  QTemporaryDir memoria_;
  QString indirizzo_;
  std::unique_ptr<ecrsim::Simulatore> simulatore_;
};

/// While it lives, the process's libecrcom waits only so long, in milliseconds: what a test with a silent
/// till makes first. Holds for the library of the application folder, whoever loads it.
class AttesaBreve {
 public:
  explicit AttesaBreve(int connessione = 300, int risposta = 300);
  ~AttesaBreve();
  AttesaBreve(const AttesaBreve&) = delete;
  AttesaBreve& operator=(const AttesaBreve&) = delete;

 private:
  void* libreria_;
};
