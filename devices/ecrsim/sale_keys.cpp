#include "ecrsim/sale_keys.h"

#include <algorithm>
#include <array>
#include <utility>

#include "ecrsim/payment_forms.h"

namespace ecrsim {
namespace {

constexpr std::size_t kNumberDigits = 4;
constexpr std::size_t kCodeDigits = 16;
constexpr std::size_t kQuantityPlaces = 3;
constexpr std::size_t kQuantityDigits = 7;
constexpr std::size_t kPercentPlaces = 2;
constexpr std::size_t kPercentDigits = 4;
constexpr std::size_t kMaxDescription = 24;
constexpr std::size_t kVatNumber = 11;
constexpr std::size_t kFiscalCode = 16;

/// Modifiers. Discounts and surcharges come as percentage of the article and of the subtotal, then as amount.
enum Modifier {
  kVoid = 0,
  kDiscountLinePercent,
  kDiscountSubtotalPercent,
  kDiscountLine,
  kDiscountSubtotal,
  kSurchargeLinePercent,
  kSurchargeSubtotalPercent,
  kSurchargeLine,
  kSurchargeSubtotal,
  kRefund,
  kCashIn,
  kCashOut,
  kCloseInCash,
};

constexpr int kCash = 1;

int numberOf(const std::string& text, int highest, const char* refusal) {
  const auto number = integerOf(text, kNumberDigits);
  demand(number && *number >= 1 && *number <= highest, refusal);
  return static_cast<int>(*number);
}

bool alphanumeric(char character) {
  return (character >= 'A' && character <= 'Z') || (character >= '0' && character <= '9');
}

bool ofSubtotal(int modifier) {
  return modifier == kDiscountSubtotalPercent || modifier == kDiscountSubtotal ||
         modifier == kSurchargeSubtotalPercent || modifier == kSurchargeSubtotal;
}

bool percent(int modifier) {
  return modifier == kDiscountLinePercent || modifier == kDiscountSubtotalPercent ||
         modifier == kSurchargeLinePercent || modifier == kSurchargeSubtotalPercent;
}

bool surcharge(int modifier) {
  return modifier >= kSurchargeLinePercent;
}

}  // namespace

void SaleKeys::amount(const std::string& number) {
  const auto amount = amountOf(number);
  demand(amount.has_value(), "IMPORTO ERRATO");
  typed_.amount = amount;
  desk_.display(row("IMPORTO", euro(*amount), kDisplayWidth), "");
}

void SaleKeys::times(const std::string& number) {
  typed_.times = number;
  desk_.display(row("PER", number, kDisplayWidth), "");
}

void SaleKeys::text(const std::string& text) {
  typed_.text = text;
  desk_.display(text.substr(0, kDisplayWidth), "");
}

void SaleKeys::department(const std::string& number) {
  const int which = numberOf(number, kDepartments, "REPARTO INESISTENTE");
  const Department department = desk_.programme().department(which);
  ReceiptLine line = lineOf(department, which);
  line.price = price(department.price, true, false);
  demand(department.highest <= 0 || line.price <= department.highest, "IMPORTO ECCESSIVO");
  demand(line.price >= department.lowest, "IMPORTO INSUFFICIENTE");
  ringUp(std::move(line));
}

void SaleKeys::plu(const std::string& number) {
  const int which = numberOf(number, kPlus, "PLU INESISTENTE");
  const Plu plu = desk_.programme().plu(which);
  demand(plu.programmed, "PLU NON PROGRAMMATO");
  demand(plu.department <= kDepartments, "REPARTO INESISTENTE");
  ReceiptLine line = lineOf(desk_.programme().department(plu.department), plu.department);
  if (!typed_.text) line.description = plu.description;
  line.plu = which;
  line.price = price(plu.price, plu.freePrice, plu.zeroPrice);
  ringUp(std::move(line));
}

ReceiptLine SaleKeys::lineOf(const Department& department, int number) {
  ReceiptLine line;
  line.description = typed_.text.value_or(department.description).substr(0, kMaxDescription);
  line.department = number;
  line.vat = department.vat;
  line.kind = kind();
  line.quantity = typedQuantity();
  return line;
}

/// The amount typed, if the article lets one type it, else the programmed one.
Cents SaleKeys::price(Cents programmed, bool free, bool zero) const {
  demand(!typed_.amount || free, "PREZZO NON LIBERO");
  const Cents price = typed_.amount.value_or(programmed);
  demand(price > 0 || (price == 0 && zero), "PREZZO MANCANTE");
  return price;
}

std::int64_t SaleKeys::typedQuantity() const {
  if (typed_.times.empty()) return kOnePiece;
  const auto quantity = decimals(typed_.times, kQuantityPlaces, kQuantityDigits);
  demand(quantity && *quantity > 0, "QUANTITA' ERRATA");
  return *quantity;
}

LineKind SaleKeys::kind() const {
  if (!typed_.modifier) return LineKind::Sale;
  demand(*typed_.modifier == kVoid || *typed_.modifier == kRefund, "SEQUENZA ERRATA");
  return *typed_.modifier == kVoid ? LineKind::Void : LineKind::Refund;
}

void SaleKeys::ringUp(ReceiptLine line) {
  line.amount = proportion(line.price, line.quantity, kOnePiece);
  if (line.kind != LineKind::Sale) line.amount = -line.amount;
  check(line);
  if (!receipt_) {
    desk_.beginDocument();
    receipt_.emplace();
  }
  printLine(line);
  const Cents amount = line.amount;
  const std::string description = line.description;
  receipt_->add(std::move(line));
  typed_ = {};
  desk_.displayAmount(description.substr(0, kDisplayWidth / 2), amount, receipt_->total());
}

void SaleKeys::check(const ReceiptLine& line) {
  const Cents absolute = line.amount < 0 ? -line.amount : line.amount;
  const Cents highest = desk_.programme().highestSale();
  demand(!nonFiscal_, "NON FISCALE APERTO");
  demand(absolute <= kMaxAmount && (highest <= 0 || absolute <= highest), "IMPORTO ECCESSIVO");
  demand(absolute > 0 || line.price == 0, "IMPORTO INSUFFICIENTE");
  demand(receipt_ || line.kind != LineKind::Void, "STORNO ECCESSIVO");
  if (!receipt_) return;
  demand(!receipt_->beingPaid(), "PAGAMENTO IN CORSO");
  demand(!receipt_->full(), "SCONTRINO PIENO");
  const Cents total = receipt_->total() + line.amount;
  demand(total <= kMaxAmount && total >= -kMaxAmount, "IMPORTO ECCESSIVO");
  demand(line.kind != LineKind::Void || receipt_->holds(line), "STORNO ECCESSIVO");
}

void SaleKeys::printLine(const ReceiptLine& line) {
  if (line.kind == LineKind::Void) desk_.print("STORNO");
  if (line.kind == LineKind::Refund) desk_.print("RESO");
  if (showQuantity_ || line.quantity != kOnePiece)
    desk_.print(std::string("  ").append(quantity(line.quantity)).append(" x ").append(euro(line.price)));
  desk_.print(row(line.description, euro(line.amount)));
}

void SaleKeys::subtotal() {
  checkNoPrefix();
  const Receipt& receipt = openReceipt();
  desk_.print(row("SUBTOTALE", euro(receipt.total())));
  desk_.display(row("SUBTOTALE", euro(receipt.total()), kDisplayWidth), "");
}

void SaleKeys::code(const std::string& number) {
  checkNoPrefix();
  demand(open(), "NESSUNO SCONTRINO");
  demand(integerOf(number, kCodeDigits).has_value(), "CODICE ERRATO");
  desk_.print("COD. " + number);
}

void SaleKeys::cashier(const std::string& number) {
  checkNoPrefix();
  const int which = numberOf(number, kOperators, "OPERATORE INESISTENTE");
  demand(desk_.programme().operatorEnabled(which), "OPERATORE ESCLUSO");
  desk_.cashier(which);
  desk_.display(row("OPERATORE", number, kDisplayWidth), desk_.programme().operatorName(which));
}

void SaleKeys::message() {
  checkNoPrefix();
  demand(typed_.text.has_value(), "MESSAGGIO MANCANTE");
  message_ = std::exchange(typed_.text, std::nullopt);
}

void SaleKeys::printMessage() {
  const std::string text = *std::exchange(message_, std::nullopt);
  demand(open(), "NESSUNO SCONTRINO");
  desk_.print(row(text, ""));
}

void SaleKeys::customerCode() {
  demand(message_.has_value(), "CODICE MANCANTE");
  demand(!nonFiscal_, "NON FISCALE APERTO");
  const std::string code = *std::exchange(message_, std::nullopt);
  const bool digits =
      std::all_of(code.begin(), code.end(), [](char one) { return one >= '0' && one <= '9'; });
  const bool vatNumber = code.size() == kVatNumber && digits;
  const bool fiscalCode = code.size() == kFiscalCode && std::all_of(code.begin(), code.end(), alphanumeric);
  demand(vatNumber || fiscalCode, "CODICE ERRATO");
  customerCode_ = (vatNumber ? "P.IVA CLIENTE " : "C.F. CLIENTE ") + code;
  desk_.display(vatNumber ? "P.IVA CLIENTE" : "C.F. CLIENTE", code);
}

void SaleKeys::orderInvoice(InvoiceOrder order) {
  demand(!nonFiscal_, "NON FISCALE APERTO");
  invoicing_.order(std::move(order));
}

void SaleKeys::openNonFiscal() {
  checkNoPrefix();
  demand(!open(), "SCONTRINO APERTO");
  desk_.beginDocument();
  nonFiscal_ = true;
  desk_.print(centred("*** NON FISCALE ***"));
  desk_.display("NON FISCALE", "");
}

void SaleKeys::closeNonFiscal() {
  checkNoPrefix();
  demand(nonFiscal_, "NESSUNO SCONTRINO");
  Counters counters = desk_.books().counters();
  ++counters.numbers[Counters::ManagementReceipts];
  desk_.endDocument({kManagement, counters, {}, {}, {centred("*** NON FISCALE ***")}});
  nonFiscal_ = false;
  displayState();
}

void SaleKeys::modifier(const std::string& number) {
  const auto which = integerOf(number, 2);
  demand(which && *which <= kCloseInCash, "TASTO SCONOSCIUTO");
  checkNoPrefix();
  const int modifier = static_cast<int>(*which);
  if (modifier == kCloseInCash)
    pay(kCash, std::nullopt);
  else if (modifier == kVoid || modifier >= kRefund)
    prefix(modifier);
  else
    adjust(modifier);
}

void SaleKeys::prefix(int number) {
  const bool cash = number == kCashIn || number == kCashOut;
  demand(!nonFiscal_ && (!cash || !receipt_), "SCONTRINO APERTO");
  typed_.modifier = number;
  static constexpr std::array kNames{"RESO", "VERSAMENTO", "PRELIEVO"};
  desk_.display(number == kVoid ? "STORNO" : kNames[static_cast<std::size_t>(number - kRefund)], "");
}

/// Discounts and surcharges, on the line before or on the subtotal.
void SaleKeys::adjust(int number) {
  Receipt& receipt = openReceipt();
  demand(!receipt.beingPaid(), "PAGAMENTO IN CORSO");
  const bool whole = ofSubtotal(number);
  demand(whole || receipt.last().kind == LineKind::Sale, "SEQUENZA ERRATA");
  const Cents base = whole ? receipt.total() : receipt.last().net();
  const Cents amount = change(number, base);
  demand(base + amount >= 0 && receipt.total() + amount >= 0, "SCONTO ECCESSIVO");
  demand(receipt.total() + amount <= kMaxAmount, "IMPORTO ECCESSIVO");
  std::string name = surcharge(number) ? "MAGGIORAZIONE" : "SCONTO";
  if (percent(number)) name.append(" ").append(percentage(typedPercentage())).append("%");
  if (whole) desk_.print(row("SUBTOTALE", euro(base)));
  desk_.print(row(name, euro(amount)));
  if (whole)
    receipt.adjustSubtotal(amount);
  else
    (amount < 0 ? receipt.last().discounts : receipt.last().surcharges) += amount;
  typed_ = {};
  desk_.displayAmount(surcharge(number) ? "MAGGIOR." : "SCONTO", amount, receipt.total());
}

/// What a modifier makes of `base`, with its sign.
Cents SaleKeys::change(int number, Cents base) const {
  demand(base > 0, "SUBTOTALE ERRATO");
  demand(!typed_.text, "SEQUENZA ERRATA");
  Cents amount = 0;
  if (percent(number)) {
    demand(!typed_.amount, "SEQUENZA ERRATA");
    amount = proportion(base, typedPercentage(), kWholePercent);
  } else {
    demand(typed_.amount && *typed_.amount > 0 && typed_.times.empty(), "IMPORTO MANCANTE");
    amount = *typed_.amount;
  }
  return surcharge(number) ? amount : -amount;
}

std::int64_t SaleKeys::typedPercentage() const {
  const auto percentage = decimals(typed_.times, kPercentPlaces, kPercentDigits);
  demand(percentage && *percentage > 0, "PERCENTUALE ERRATA");
  return *percentage;
}

void SaleKeys::payment(const std::string& number) {
  const int form = numberOf(number, kPayments, "PAGAMENTO INESISTENTE");
  demand(typed_.times.empty() && !typed_.text, "SEQUENZA ERRATA");
  if (!typed_.modifier) return pay(form, typed_.amount);
  demand(*typed_.modifier == kCashIn || *typed_.modifier == kCashOut, "SEQUENZA ERRATA");
  moveCash(form);
}

void SaleKeys::moveCash(int form) {
  demand(typed_.amount && *typed_.amount > 0, "IMPORTO MANCANTE");
  const bool in = *typed_.modifier == kCashIn;
  const Cents amount = *typed_.amount;
  const std::size_t place = static_cast<std::size_t>(form) - 1;
  Counters counters = desk_.books().counters();
  ++counters.numbers[Counters::ManagementReceipts];
  (in ? counters.cashIn : counters.cashOut)[place] += amount;
  desk_.wholeDocument({kManagement,
                       counters,
                       {},
                       {},
                       {centred(in ? "VERSAMENTO IN CASSA" : "PRELIEVO DA CASSA"),
                        row(kPaymentForms[place].name, euro(in ? amount : -amount))}});
  typed_ = {};
  desk_.display(in ? "VERSAMENTO" : "PRELIEVO", row("", euro(amount), kDisplayWidth));
}

void SaleKeys::pay(int form, std::optional<Cents> typed) {
  const Receipt& receipt = openReceipt();
  const PaymentForm& with = kPaymentForms[static_cast<std::size_t>(form) - 1];
  const Cents rest = receipt.rest();
  const Cents given = typed.value_or(rest);
  demand(!typed || (rest > 0 && given > 0), "IMPORTO ERRATO");
  demand(rest >= 0 || form == kCash, "PAGAMENTO ERRATO");
  demand(given <= rest || with.change, "IMPORTO ECCESSIVO");
  std::vector<std::string> lines;
  if (!receipt.beingPaid()) lines.push_back(row("TOTALE EURO", euro(receipt.total())));
  lines.push_back(row(with.name, euro(given)));
  Receipt paid = receipt;
  paid.pay(form, given);
  if (given >= rest) return close(paid, given - rest, std::move(lines));
  lines.push_back(row("DA PAGARE", euro(rest - given)));
  for (const std::string& line : lines) desk_.print(line);
  receipt_ = paid;
  typed_ = {};
  desk_.display(row(with.name, euro(given), kDisplayWidth), row("RESTA", euro(rest - given), kDisplayWidth));
}

void SaleKeys::close(const Receipt& paid, Cents change, std::vector<std::string> tail) {
  if (change > 0) tail.push_back(row("RESTO", euro(change)));
  if (showQuantity_) tail.push_back(row("PEZZI", std::to_string(paid.pieces())));
  if (!customerCode_.empty()) tail.push_back(customerCode_);
  const Issue issue = invoicing_.issue(paid);
  tail.insert(tail.end(), issue.lines.begin(), issue.lines.end());
  const Cents total = paid.total();
  desk_.endDocument({kFiscalReceipt,
                     paid.countedIn(desk_.books().counters(), desk_.cashier(), change),
                     paid.sales(),
                     {},
                     std::move(tail),
                     issue.invoice});
  invoicing_.done(issue);
  receipt_.reset();
  typed_ = {};
  customerCode_.clear();
  showQuantity_ = false;
  desk_.display(row("TOTALE", euro(total), kDisplayWidth), row("RESTO", euro(change), kDisplayWidth));
}

void SaleKeys::clear() {
  typed_ = {};
  message_.reset();
  displayState();
}

void SaleKeys::displayState() {
  if (receipt_)
    desk_.display("SCONTRINO APERTO", row("TOTALE", euro(receipt_->total()), kDisplayWidth));
  else
    desk_.display(nonFiscal_ ? "NON FISCALE" : "CASSA PRONTA", "");
}

Receipt& SaleKeys::openReceipt() {
  demand(receipt_ && !receipt_->empty(), "NESSUNO SCONTRINO");
  return *receipt_;
}

/// A key of its own between a void, say, and its sale.
void SaleKeys::checkNoPrefix() const {
  demand(!typed_.modifier, "SEQUENZA ERRATA");
}

}  // namespace ecrsim
