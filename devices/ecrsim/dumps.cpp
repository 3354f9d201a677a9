#include "ecrsim/dumps.h"

#include <memory>
#include <utility>

#include "ecrsim/desk.h"
#include "ecrsim/reports.h"

namespace ecrsim {
namespace {

constexpr std::size_t kDateDigits = 6;
constexpr std::size_t kNumberDigits = 5;
constexpr const char* kBadArgument = "ARGOMENTO ERRATO";
constexpr const char* kLineEnd = "\r\n";

struct Range {
  int first = 0;
  int last = 0;
  bool holds(int value) const { return value >= first && value <= last; }
};

Range checked(std::optional<std::int64_t> first, std::optional<std::int64_t> last) {
  demand(first && last && *first <= *last, kBadArgument);
  return {static_cast<int>(*first), static_cast<int>(*last)};
}

Range days(const std::string& argument) {
  demand(argument.size() == 2 * kDateDigits, kBadArgument);
  return checked(dayNumberOf(argument.substr(0, kDateDigits)), dayNumberOf(argument.substr(kDateDigits)));
}

Range numbers(const std::string& argument) {
  demand(argument.size() == 2 * kNumberDigits, kBadArgument);
  return checked(integerOf(argument.substr(0, kNumberDigits), kNumberDigits),
                 integerOf(argument.substr(kNumberDigits), kNumberDigits));
}

std::string head(const char* title) {
  return row(title, std::string("MATRICOLA SIM ") + Desk::kSerialNumber) + kLineEnd + kLineEnd;
}

std::unique_ptr<LineText> journal(Books& books, Journal::Wanted wanted) {
  auto text = books.journal().text(head("GIORNALE DI FONDO"), std::move(wanted));
  if (!text) throw Refusal{"MEMORIA GUASTA", true};
  return text;
}

std::unique_ptr<LineText> journalOfDays(Books& books, const std::string& argument) {
  const Range range = days(argument);
  return journal(books, [range](const DocumentHead& one) { return range.holds(dayNumber(one.when)); });
}

std::unique_ptr<LineText> journalOfNumbers(Books& books, const std::string& argument) {
  const auto day = dayNumberOf(argument.substr(0, kDateDigits));
  demand(day.has_value(), kBadArgument);
  const Range range = numbers(argument.substr(kDateDigits));
  return journal(books, [range, day](const DocumentHead& one) {
    return one.kind == kFiscalReceipt && dayNumber(one.when) == *day && range.holds(one.number);
  });
}

/// Never more than FiscalMemory::kCapacity closures.
template <class Wanted>
std::unique_ptr<LineText> closures(const Books& books, Wanted wanted) {
  const auto all = books.fiscalMemory();
  if (!all) throw Refusal{"MEMORIA GUASTA", true};
  std::string text = head("MEMORIA FISCALE");
  for (const Closure& one : *all) {
    if (!wanted(one)) continue;
    for (const std::string& line : reports::closure(one)) text += line + kLineEnd;
    text += kLineEnd;
  }
  return std::make_unique<PlainText>(std::move(text));
}

std::unique_ptr<LineText> textOf(const Stroke& stroke, Books& books) {
  if (stroke.number == "10") return journalOfDays(books, stroke.text);
  if (stroke.number == "11") return journalOfNumbers(books, stroke.text);
  if (stroke.number == "12") {
    const Range range = days(stroke.text);
    return closures(books, [range](const Closure& one) { return range.holds(dayNumber(one.when)); });
  }
  demand(stroke.number == "13", "FUNZIONE INESISTENTE");
  const Range range = numbers(stroke.text);
  return closures(books, [range](const Closure& one) { return range.holds(one.number); });
}

}  // namespace

LineAnswer dump(const Stroke& stroke, Books& books) {
  return {LineAnswer::What::Dump, commandOf(stroke), textOf(stroke, books),
          std::string(kMarkerLength, kMarkerCharacter)};
}

std::string commandOf(const Stroke& stroke) {
  const std::string argument = stroke.text.empty() ? std::string() : "\"" + stroke.text + "\"";
  return "X" + argument + stroke.number + "F";
}

}  // namespace ecrsim
