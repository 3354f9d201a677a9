#pragma once

#include <optional>
#include <string>

#include "ecrsim/desk.h"
#include "ecrsim/invoicing.h"
#include "ecrsim/receipt.h"

namespace ecrsim {

/// The keys of the sale: what is typed, the receipt that is open, what it is paid with. Each function is one
/// key; it throws Refusal, and has changed nothing then.
class SaleKeys {
 public:
  explicit SaleKeys(Desk& desk) : desk_(desk), invoicing_(desk) {}

  void amount(const std::string& number);
  void times(const std::string& number);
  void text(const std::string& text);
  void department(const std::string& number);
  void plu(const std::string& number);
  void subtotal();
  void code(const std::string& number);
  void cashier(const std::string& number);
  void message();
  /// Prints the message that waits: no fiscal code after all.
  void printMessage();
  /// Takes the message that waits for the customer's fiscal code or VAT number.
  void customerCode();
  void showQuantity() { showQuantity_ = true; }
  void openNonFiscal();
  void closeNonFiscal();
  void modifier(const std::string& number);
  void payment(const std::string& number);
  /// Forgets what was typed; what is open stays open.
  void clear();

  bool messageWaits() const { return message_.has_value(); }
  bool open() const { return receipt_ || nonFiscal_; }
  bool nonFiscalOpen() const { return nonFiscal_; }
  void displayState();
  /// Of the receipt that is open; 0 without one.
  Cents total() const { return receipt_ ? receipt_->total() : 0; }
  /// An invoice for the receipt that is open, or for the next one. There is no key for it.
  void orderInvoice(InvoiceOrder order);
  Invoicing& invoicing() { return invoicing_; }

 private:
  /// What was typed and has not been used by a key yet.
  struct Typed {
    std::optional<Cents> amount{};
    std::string times{};
    std::optional<std::string> text{};
    std::optional<int> modifier{};
  };

  ReceiptLine lineOf(const Department& department, int number);
  Cents price(Cents programmed, bool free, bool zero) const;
  std::int64_t typedQuantity() const;
  LineKind kind() const;
  void ringUp(ReceiptLine line);
  void check(const ReceiptLine& line);
  void printLine(const ReceiptLine& line);
  void prefix(int number);
  void adjust(int number);
  Cents change(int number, Cents base) const;
  std::int64_t typedPercentage() const;
  void moveCash(int form);
  void pay(int form, std::optional<Cents> typed);
  void close(const Receipt& paid, Cents change, std::vector<std::string> tail);
  Receipt& openReceipt();
  void checkNoPrefix() const;

  Desk& desk_;
  Invoicing invoicing_;
  Typed typed_{};
  std::optional<std::string> message_{};
  std::string customerCode_;
  bool showQuantity_ = false;
  bool nonFiscal_ = false;
  std::optional<Receipt> receipt_{};
};

}  // namespace ecrsim
