#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <condition_variable>
#include <memory>
#include <mutex>

#include "devices/loaded_library.h"
#include "ecrsim/simulator.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_till.h"

/// The paper of a till as a test reads it: printed from the till's threads, looked at from the test's.
class PaperRoll {
 public:
  void print(const std::string& line);
  /// What has been printed; waits up to five seconds until it is `expected`, which it may never be.
  QByteArrayList lines(const QByteArrayList& expected) const;
  QByteArrayList lines() const;
  void tearOff();

 private:
  mutable std::mutex mutex_;
  mutable std::condition_variable grown_;
  QByteArrayList lines_;
};

/// A way for keys to come to a till.
class Carrier {
 public:
  Carrier() = default;
  virtual ~Carrier() = default;
  Carrier(const Carrier&) = delete;
  Carrier& operator=(const Carrier&) = delete;
  virtual void send(const QByteArray& keys) = 0;
  /// So many bytes of what the till printed to the line, fewer if no more come.
  virtual QByteArray receive(qsizetype count) = 0;
  /// What the till gives back before its answer to a command.
  virtual QByteArray echo(const QByteArray& command) const = 0;
};

enum class Line { Network, Serial };
inline void PrintTo(Line line, std::ostream* output) {
  *output << (line == Line::Network ? "Network" : "Serial");
}
std::unique_ptr<Carrier> carrierTo(TestTill& till, Line line);

/// A programmed till with a clock that stands at 22/11/2026 10:15:33, its paper, and a line to it.
///
/// departments: 1 ALIMENTARI 1,50 (VAT 1: 22 %), 2 BEVANDE 2,00 (VAT 2: 10 %), 3 FRUTTA 3,00 (VAT 3: 4 %),
/// 7 VARIE 7,00, 8 CASA 8,00, 9 CARO 5,00 at most 20,00 and at least 1,00.
/// articles: 2 LATTE 1,39 (2), 4 PROSCIUTTO 12,50 with a free price (1), 8 PANE 1,80 (3), 10 MELE 2,10 (3),
/// 11 OMAGGIO that may cost nothing (1), 12 SENZA PREZZO (1).
class KeyboardScene {
 public:
  explicit KeyboardScene(Line line = Line::Network, ecrsim::Options options = {});

  void send(const QByteArray& keys) { carrier_->send(keys); }
  /// Presses keys in the till itself and returns what it prints to the line.
  QByteArray press(const QByteArray& keys) {
    return QByteArray::fromStdString(till->press(keys.toStdString()));
  }
  QByteArray state() { return press("X89F"); }
  Carrier& carrier() { return *carrier_; }

  ecrsim::Moment now{2026, 11, 22, 10, 15, 33};
  PaperRoll paper;
  QByteArrayList display;
  TestTill till;

 private:
  ecrsim::Options watched(ecrsim::Options options);
  std::unique_ptr<Carrier> carrier_;
};

/// A line of paper of 40 characters with something at its right edge.
QByteArray riga(const QByteArray& left, const QByteArray& right);
/// A line in the middle of the paper.
QByteArray centrata(const QByteArray& text);
/// The last four lines of a document of that name, "SF 000001" say.
QByteArrayList piede(const QByteArray& name, const QByteArray& cashier = "1");

/// Lays the programme of KeyboardScene into a till's memory.
void programTill(const TestTill& till);
/// A counter of venduto.bin: array 0 amounts, 1 pieces, 2 discounts; articles from 1.
std::int32_t salesCounter(const QByteArray& sales, int array, int plu);
