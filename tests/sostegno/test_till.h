#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ecrsim/simulator.h"

/// A loopback address of the test's own, 127.x.y.z and never 127.0.0.1: another one at each call, another one
/// in each process. Nobody listens there until a TestTill does, but it answers an echo.
QString ownAddress();

/// What a slot has sold. `slot` counts from 0: slot 0 is the article with auto_id 1.
struct SlotSales {
  int slot = 0;
  std::int32_t amount = 0;
  std::int32_t pieces = 0;
  std::int32_t discount = 0;
};

/// The 60000 bytes of venduto.bin for these slots, all others zero.
QByteArray salesArchive(const std::vector<SlotSales>& sales);

/// A simulated till with a memory folder and an address of its own, listening while it lives.
class TestTill {
 public:
  /// Folder, and the address unless it was set, are the fixture's own; the rest of `options` holds.
  explicit TestTill(ecrsim::Options options = {});

  ecrsim::Simulator& operator*() { return *simulator_; }
  ecrsim::Simulator* operator->() { return simulator_.get(); }
  QString address() const { return address_; }

  /// Path of a name in the till's memory.
  QString file(const QString& name) const { return memory_.filePath(name); }
  bool exists(const QString& name) const;
  /// What stands in the memory under a name; fails the test if nothing does.
  QByteArray byte(const QString& name) const;
  /// Lays a file into the memory.
  void put(const QString& name, const QByteArray& byte) const;
  /// Lays a venduto.bin with these slots into the memory.
  void sales(const std::vector<SlotSales>& sales) const;
  /// Switches the till off: from now on the address refuses connections.
  void switchOff() { simulator_.reset(); }

 private:
  QTemporaryDir memory_;
  QString address_;
  std::unique_ptr<ecrsim::Simulator> simulator_;
};

/// While it lives, the process's libecrcom waits only so long, in milliseconds: what a test with a silent
/// till makes first. Holds for the library of the application folder, whoever loads it.
class ShortTimeouts {
 public:
  explicit ShortTimeouts(int connection = 300, int answer = 300);
  ~ShortTimeouts();
  ShortTimeouts(const ShortTimeouts&) = delete;
  ShortTimeouts& operator=(const ShortTimeouts&) = delete;

 private:
  void* library_;
};

/// Calls on the till as "mode:file", in order.
QStringList callsOf(TestTill& till);
/// Name of a fault for a test's parameter: "Mode7Silence".
std::string faultName(int mode, ecrsim::FaultKind kind);
namespace ecrsim {
void PrintTo(FaultKind kind, std::ostream* output);
}  // namespace ecrsim
