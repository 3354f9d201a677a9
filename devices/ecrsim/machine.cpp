#include "ecrsim/machine.h"

#include <utility>

#include "ecrsim/dumps.h"

namespace ecrsim {
namespace {

constexpr char kIdle = 'I';
constexpr char kSale = 'V';
constexpr char kZeroing = 'A';
constexpr char kReading = 'L';
constexpr std::string_view kReadState = "89";
constexpr std::string_view kCustomerCode = "39";
constexpr std::string_view kNoCard = "0";

bool reporting(char state) {
  return state == kReading || state == kZeroing;
}

int filled(int count, int places) {
  return count * 100 / places;
}

}  // namespace

Machine::Machine(const Memory& memory, char state, std::string card, TillClock clock, Watcher watcher)
    : desk_(memory, std::move(clock), std::move(watcher)),
      sale_(desk_),
      reports_(desk_),
      card_(std::move(card)),
      state_(state) {}

void Machine::press(const Stroke& stroke, std::vector<LineAnswer>& answers) {
  guarded([&] {
    const bool readsState = stroke.key == Key::Extended && stroke.number == kReadState && stroke.text.empty();
    if (readsState) return answers.push_back(stateAnswer(stroke));
    if (stroke.key == Key::Clear) return clear();
    if (!error_ && stroke.key != Key::Abort) obey(stroke, answers);
  });
}

void Machine::type(std::string_view sequence, std::vector<LineAnswer>& answers) {
  KeyParser parser;
  for (const char one : sequence)
    if (const auto stroke = parser.feed(one)) press(*stroke, answers);
  if (const auto rest = parser.end()) press(*rest, answers);
  pause();
}

/// Nothing is typed behind an order that is refused: it would be a receipt without its invoice.
int Machine::issueInvoice(InvoiceOrder order, std::string_view sequence) {
  if (error_) return 0;
  guarded([&] {
    demand(!transferOpen_, "TRASFERIMENTO PC");
    demand(state_ == kIdle || state_ == kSale, "FUORI VENDITA");
    sale_.orderInvoice(std::move(order));
  });
  if (error_) return 0;
  std::vector<LineAnswer> answers;
  type(sequence, answers);
  const int number = sale_.invoicing().last();
  sale_.invoicing().drop();
  return number;
}

void Machine::pause() {
  if (!error_ && waits()) guarded([this] { sale_.printMessage(); });
}

bool Machine::memoryFailed() {
  return std::exchange(memoryFailed_, false);
}

void Machine::state(char letter) {
  state_ = letter;
  saleState_ = kSale;
}

bool Machine::fiscalClosure() {
  try {
    if (receipts() > 0) reports_.fiscalClosure();
    return true;
  } catch (const Refusal& refusal) {
    memoryFailed_ = refusal.memory;
    return false;
  }
}

template <class Work>
void Machine::guarded(Work work) {
  try {
    work();
  } catch (const Refusal& refusal) {
    fail(refusal);
  }
}

void Machine::fail(const Refusal& refusal) {
  error_ = true;
  memoryFailed_ = memoryFailed_ || refusal.memory;
  desk_.display(row("ERRORE", "C", kDisplayWidth), refusal.text);
}

void Machine::clear() {
  error_ = false;
  if (reporting(state_)) state_ = saleState_;
  sale_.clear();
}

void Machine::obey(const Stroke& stroke, std::vector<LineAnswer>& answers) {
  if (waits() && stroke.key != Key::Function) sale_.printMessage();
  demand(!transferOpen_, "TRASFERIMENTO PC");
  switch (stroke.key) {
    case Key::Reading:
      return turnTo(kReading);
    case Key::Zeroing:
      return turnTo(kZeroing);
    case Key::Function:
      return function(stroke.number);
    case Key::Extended:
      demand(!sale_.open(), "SCONTRINO APERTO");
      return answers.push_back(dump(stroke, desk_.books()));
    default:
      demand(state_ == kIdle || state_ == kSale, "FUORI VENDITA");
      return sale(stroke);
  }
}

void Machine::sale(const Stroke& stroke) {
  switch (stroke.key) {
    case Key::Amount:
      return sale_.amount(stroke.number);
    case Key::Times:
      return sale_.times(stroke.number);
    case Key::Text:
      return sale_.text(stroke.text);
    case Key::Department:
      return sale_.department(stroke.number);
    case Key::Plu:
      return sale_.plu(stroke.number);
    case Key::Subtotal:
      return sale_.subtotal();
    case Key::Code:
      return sale_.code(stroke.number);
    case Key::Operator:
      return sale_.cashier(stroke.number);
    case Key::Message:
      return sale_.message();
    case Key::ShowQuantity:
      return sale_.showQuantity();
    case Key::OpenNonFiscal:
      return sale_.openNonFiscal();
    case Key::CloseNonFiscal:
      return sale_.closeNonFiscal();
    case Key::Modifier:
      return sale_.modifier(stroke.number);
    case Key::Payment:
      return sale_.payment(stroke.number);
    default:
      refuse("TASTO SCONOSCIUTO");
  }
}

void Machine::function(const std::string& number) {
  if (waits() && number != kCustomerCode) sale_.printMessage();
  if (state_ == kReading) return reports_.reading(number);
  if (state_ == kZeroing) return reports_.zeroing(number);
  demand(number == kCustomerCode && (state_ == kIdle || state_ == kSale), "FUNZIONE INESISTENTE");
  sale_.customerCode();
}

/// The key of the lock: it turns over from one report to the other, but not over an open receipt.
void Machine::turnTo(char letter) {
  demand(!sale_.open(), "SCONTRINO APERTO");
  demand(reporting(state_) || state_ == kIdle || state_ == kSale, "FUORI VENDITA");
  if (!reporting(state_)) saleState_ = state_;
  state_ = letter;
  desk_.display(letter == kReading ? "LETTURE" : "AZZERAMENTI", "");
}

LineAnswer Machine::stateAnswer(const Stroke& stroke) {
  return {LineAnswer::What::State, commandOf(stroke), std::make_unique<PlainText>(stateRecord(tillState()))};
}

TillState Machine::tillState() {
  const Counters& counters = desk_.books().counters();
  TillState state;
  state.receiptOpen = sale_.open();
  state.nonFiscal = sale_.nonFiscalOpen();
  state.fiscalReceipts = counters.numbers[Counters::FiscalReceipts];
  state.managementReceipts = counters.numbers[Counters::ManagementReceipts];
  state.card = !card_.empty() && card_ != kNoCard;
  state.cardFilled = state.card ? filled(desk_.programme().articles(), kPlus) : 0;
  state.fiscalMemoryFilled = filled(desk_.books().closures().value_or(0), FiscalMemory::kCapacity);
  state.printer = desk_.printer;
  state.paper = desk_.paper;
  return state;
}

}  // namespace ecrsim
