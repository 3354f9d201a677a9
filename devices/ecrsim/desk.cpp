#include "ecrsim/desk.h"

#include <array>
#include <cstdio>
#include <utility>

namespace ecrsim {
namespace {

/// Documents of one kind between two closures.
constexpr int kMaxNumber = 999999;

std::string shortMoment(const Moment& moment) {
  return longText(moment).substr(0, 16);
}

const char* kindName(char kind) {
  if (kind == kFiscalReceipt) return "SF ";
  return kind == kFiscalClosure ? "AZ " : "SG ";
}

std::string sixDigits(int number) {
  std::array<char, 16> text;
  std::snprintf(text.data(), text.size(), "%06d", number);
  return text.data();
}

int numberOf(const Closing& closing) {
  if (closing.closure) return closing.closure->number;
  const bool fiscal = closing.kind == kFiscalReceipt;
  return static_cast<int>(
      closing.counters.numbers[fiscal ? Counters::FiscalReceipts : Counters::ManagementReceipts]);
}

}  // namespace

void refuse(const char* text) {
  throw Refusal{text};
}

void demand(bool holds, const char* text) {
  if (!holds) refuse(text);
}

Desk::Desk(const Memory& memory, TillClock clock, Watcher watcher)
    : memory_(memory),
      programme_(memory),
      books_(memory),
      clock_(clock ? std::move(clock) : systemMoment),
      watcher_(std::move(watcher)),
      paper_(watcher_.paper) {}

TillClock Desk::clock(TillClock fresh) {
  return std::exchange(clock_, std::move(fresh));
}

void Desk::display(const std::string& upper, const std::string& lower) {
  if (watcher_.display) watcher_.display(row(upper, "", kDisplayWidth), row(lower, "", kDisplayWidth));
}

void Desk::displayAmount(std::string_view what, Cents amount, Cents total) {
  display(row(what, euro(amount), kDisplayWidth), row("TOTALE", euro(total), kDisplayWidth));
}

void Desk::checkDocument(char kind) {
  demand(printer == 'O', "STAMPANTE IN ERRORE");
  demand(paper == 'O', "FINE CARTA");
  if (!books_.sound()) throw Refusal{"MEMORIA GUASTA", true};
  // What makes the numbers begin anew is not kept back by them.
  if (kind == kFiscalClosure) return;
  const auto& numbers = books_.counters().numbers;
  demand(numbers[Counters::FiscalReceipts] < kMaxNumber, "AZZERARE LA CASSA");
  demand(numbers[Counters::ManagementReceipts] < kMaxNumber, "AZZERARE LA CASSA");
}

std::vector<std::string> Desk::header() {
  std::vector<std::string> lines;
  for (const std::string& line : programme_.header()) lines.push_back(centred(line));
  return lines;
}

void Desk::beginDocument() {
  checkDocument(kManagement);
  for (const std::string& line : header()) print(line);
}

void Desk::wholeDocument(Closing closing) {
  checkDocument(closing.kind);
  const std::vector<std::string> lines = header();
  closing.tail.insert(closing.tail.begin(), lines.begin(), lines.end());
  endDocument(closing);
}

void Desk::endDocument(const Closing& closing) {
  Entry entry{{}, closing.counters, closing.sales, closing.closure, closing.invoice};
  DocumentHead& head = entry.document.head;
  head.when = now();
  if (entry.invoice) entry.invoice->when = head.when;
  head.kind = closing.kind;
  head.number = numberOf(closing);
  head.closures = closures();
  std::vector<std::string> tail = closing.tail;
  for (std::string& line : foot(head, closing.kind == kFiscalReceipt)) tail.push_back(std::move(line));
  entry.document.lines = paper_.document();
  entry.document.lines.insert(entry.document.lines.end(), tail.begin(), tail.end());
  if (!books_.enter(entry)) throw Refusal{"MEMORIA GUASTA", true};
  for (const std::string& line : tail) print(line);
  paper_.endDocument();
}

int Desk::closures() const {
  const auto closures = books_.closures();
  if (!closures) throw Refusal{"MEMORIA GUASTA", true};
  return *closures;
}

std::vector<std::string> Desk::foot(const DocumentHead& head, bool courtesy) {
  std::vector<std::string> lines;
  lines.push_back(row("OPERATORE " + std::to_string(cashier_), programme_.operatorName(cashier_)));
  if (courtesy)
    for (const std::string& line : programme_.courtesy()) lines.push_back(centred(line));
  lines.push_back(row(shortMoment(head.when), kindName(head.kind) + sixDigits(head.number)));
  lines.push_back(row("MATRICOLA", std::string("SIM ") + kSerialNumber));
  lines.emplace_back();
  return lines;
}

}  // namespace ecrsim
