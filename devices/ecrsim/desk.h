#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ecrsim/books.h"
#include "ecrsim/customers.h"
#include "ecrsim/moment.h"
#include "ecrsim/paper.h"
#include "ecrsim/programme.h"

namespace ecrsim {

/// A key that the till does not obey. `text` is what the display says, at most 20 characters.
struct Refusal {
  const char* text;
  /// Its memory cannot be read or written: no fault of who pressed the key.
  bool memory = false;
};

[[noreturn]] void refuse(const char* text);
/// Refuses unless it holds.
void demand(bool holds, const char* text);

/// What a document is closed with.
struct Closing {
  char kind = kManagement;
  Counters counters{};
  std::vector<SlotMove> sales{};
  std::optional<Closure> closure{};
  /// Printed once the memory has taken the document, not before.
  std::vector<std::string> tail{};
  /// Issued at the document's moment, whatever its own says.
  std::optional<Invoice> invoice{};
};

/// What all keys work with: programme, books, paper, display, clock.
class Desk {
 public:
  static constexpr const char* kSerialNumber = "0000001";

  Desk(const Memory& memory, TillClock clock, Watcher watcher);

  Programme& programme() { return programme_; }
  /// As the PC has sent them last.
  Customers customers() const { return Customers(memory_); }
  Books& books() { return books_; }
  const Books& books() const { return books_; }
  Moment now() const { return clock_(); }
  /// Another clock for a while; returns the one before.
  TillClock clock(TillClock fresh);
  void print(const std::string& line) { paper_.print(line); }
  void display(const std::string& upper, const std::string& lower);
  void displayAmount(std::string_view what, Cents amount, Cents total);
  int cashier() const { return cashier_; }
  void cashier(int number) { cashier_ = number; }
  /// 'O' in order, 'T' head lifted, 'E' broken; paper 'O' there, anything else none.
  char printer = 'O';
  char paper = 'O';

  /// Header lines of a document. Refuses if it could not be printed or kept.
  void beginDocument();
  /// A document from its header to its foot at one stroke: all of it is in the closing's tail.
  void wholeDocument(Closing closing);
  /// Enters the document and prints its tail and foot. Refuses if the memory does not take it: the document
  /// is open as before then.
  void endDocument(const Closing& closing);
  /// Closures so far; refuses if the fiscal memory is damaged.
  int closures() const;

 private:
  void checkDocument(char kind);
  std::vector<std::string> header();
  std::vector<std::string> foot(const DocumentHead& head, bool courtesy);

  const Memory& memory_;
  Programme programme_;
  Books books_;
  TillClock clock_;
  Watcher watcher_;
  Paper paper_;
  int cashier_ = 1;
};

}  // namespace ecrsim
