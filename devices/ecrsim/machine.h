#pragma once

#include <string_view>
#include <vector>

#include "ecrsim/desk.h"
#include "ecrsim/key_parser.h"
#include "ecrsim/line_text.h"
#include "ecrsim/report_keys.h"
#include "ecrsim/sale_keys.h"
#include "ecrsim/state_record.h"

namespace ecrsim {

/// The till behind its keyboard: obeys strokes one by one. One that it refuses lights the error lamp, and
/// until "c" clears it no other key does anything but the reading of the state.
class Machine {
 public:
  Machine(const Memory& memory, char state, std::string card, TillClock clock, Watcher watcher);

  /// Reads the programme anew before the keys that follow: the PC may have sent another.
  void refresh() { desk_.programme().forget(); }
  /// Adds what the stroke prints to the line.
  void press(const Stroke& stroke, std::vector<LineAnswer>& answers);
  /// The keys have come to rest: a message that waited for its function is printed.
  void pause();
  bool waits() const { return sale_.messageWaits(); }
  /// All strokes of a text, and a rest behind them.
  void type(std::string_view sequence, std::vector<LineAnswer>& answers);

  /// Types `sequence`, the last key of which closes a receipt, with an invoice for that receipt. Returns the
  /// invoice's number, from 1; 0 if none was issued, and then the receipt may be closed all the same.
  int issueInvoice(InvoiceOrder order, std::string_view sequence);
  /// What the receipt that is open comes to so far.
  Cents total() const { return sale_.total(); }

  bool error() const { return error_; }
  /// Whether the last refusal was the memory's; forgotten when asked for.
  bool memoryFailed();
  /// State letter as the PC sees it: V while something is open.
  char state() const { return sale_.open() ? 'V' : state_; }
  void state(char letter);
  /// A PC has a transfer open: no sale, no report.
  void transferOpen(bool open) { transferOpen_ = open; }
  std::int64_t receipts() const { return desk_.books().counters().numbers[Counters::FiscalReceipts]; }
  /// The PC's closure of the fiscal day, of which nothing comes if no receipt was printed. Whether it went
  /// through.
  bool fiscalClosure();
  Desk& desk() { return desk_; }

 private:
  void obey(const Stroke& stroke, std::vector<LineAnswer>& answers);
  void sale(const Stroke& stroke);
  void function(const std::string& number);
  void turnTo(char letter);
  void clear();
  void fail(const Refusal& refusal);
  LineAnswer stateAnswer(const Stroke& stroke);
  TillState tillState();
  template <class Work>
  void guarded(Work work);

  Desk desk_;
  SaleKeys sale_;
  ReportKeys reports_;
  std::string card_;
  char state_;
  /// Where "c" leads back to.
  char saleState_ = 'V';
  bool error_ = false;
  bool memoryFailed_ = false;
  bool transferOpen_ = false;
};

}  // namespace ecrsim
