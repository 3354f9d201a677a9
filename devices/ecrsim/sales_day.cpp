#include "ecrsim/sales_day.h"

#include <algorithm>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ecrsim/seeded_invoices.h"

namespace ecrsim {
namespace {

constexpr std::uint32_t kMaxRows = 8;
constexpr std::uint32_t kMaxPieces = 6;
/// One line in so many is discounted.
constexpr std::uint32_t kOneDiscountIn = 10;
constexpr const char* kDiscount = "10,00*1M";
/// Rows that are tried besides when each receipt is to have an invoice and comes to nothing so far.
constexpr int kMoreRows = 100;
constexpr const char* kCash = "1T";
/// Receipts that are written to the memory at once.
constexpr int kBatch = 1000;

/// Seconds of a day.
struct Hours {
  int opens = 0;
  int length = 0;
};
constexpr Hours kSales{(8 * 60 + 30) * 60, 11 * 60 * 60};
/// Behind those of the sales: no invoice of theirs has the same moment.
constexpr Hours kInvoices{20 * 60 * 60, 3 * 60 * 60};

struct Article {
  int number = 0;
  Cents price = 0;
};

std::vector<Article> articles(Programme& programme) {
  std::vector<Article> found;
  for (int number = 1; number <= kPlus; ++number) {
    const Plu plu = programme.plu(number);
    const bool sells = plu.price > 0 || (plu.price == 0 && plu.zeroPrice);
    if (plu.programmed && sells) found.push_back({number, plu.price});
  }
  return found;
}

/// A clock that goes through the hours of one date, as far as receipt `number` of `count`.
Moment timeOf(Moment date, const Hours& hours, int number, int count) {
  const int second = hours.opens + static_cast<int>(std::int64_t{hours.length} * number / count);
  date.hour = second / 3600;
  date.minute = second / 60 % 60;
  date.second = second % 60;
  return date;
}

class Day {
 public:
  Day(Machine& machine, std::uint32_t seed, SeededInvoices::Which invoiced)
      : machine_(machine),
        which_(seed),
        articles_(articles(machine.desk().programme())),
        invoiced_(invoiced),
        invoices_(machine.desk().customers(), seed, invoiced) {}

  bool empty() const { return articles_.empty(); }
  Cents takings() const { return takings_; }
  /// Invoices that the archive took.
  int issued() const { return issued_; }
  void receipt() {
    for (std::uint32_t rows = 1 + which_() % kMaxRows; rows > 0; --rows) row();
    for (int more = kMoreRows; invoiced_ == SeededInvoices::Which::All && worthNothing() && more > 0; --more)
      row();
    pay();
  }

 private:
  /// The generator's numbers are fixed by the standard; its distributions are not, hence the remainders.
  void row() {
    const Article& article = articles_[which_() % articles_.size()];
    const auto pieces = static_cast<std::int64_t>(1 + which_() % kMaxPieces);
    const bool discounted = which_() % kOneDiscountIn == 0;
    if (!press(std::to_string(pieces) + "*" + std::to_string(article.number) + "P")) return;
    takings_ += pieces * article.price;
    if (discounted) press(kDiscount);
  }
  bool worthNothing() const { return machine_.total() <= 0; }
  /// In cash, whatever the invoice leaves unpaid: the sales of a day do not depend on its invoices.
  void pay() {
    const auto order = invoices_.next(machine_.desk().now(), machine_.total());
    if (!order) {
      press(kCash);
      return;
    }
    if (machine_.issueInvoice(*order, kCash) > 0) ++issued_;
    settle();
  }
  /// Whether the till took it.
  bool press(const std::string& keys) {
    std::vector<LineAnswer> answers;
    machine_.type(keys, answers);
    return settle();
  }
  /// The lamp is put out, so that the day goes on without what the till refuses.
  bool settle() {
    std::vector<LineAnswer> answers;
    const bool taken = !machine_.error();
    if (machine_.memoryFailed()) throw std::runtime_error("memoria della cassa non scrivibile");
    if (!taken) machine_.type("c", answers);
    return taken;
  }

  Machine& machine_;
  std::mt19937 which_;
  std::vector<Article> articles_;
  SeededInvoices::Which invoiced_;
  SeededInvoices invoices_;
  Cents takings_ = 0;
  int issued_ = 0;
};

void check(bool done) {
  if (!done) throw std::runtime_error("memoria della cassa non leggibile o non scrivibile");
}

void ringUp(Machine& machine, Day& day, int receipts, const Hours& hours) {
  if (day.empty() || receipts <= 0) return;
  const Moment date = machine.desk().now();
  int number = 0;
  TillClock before = machine.desk().clock([&] { return timeOf(date, hours, number, receipts); });
  try {
    while (number < receipts) {
      Books& books = machine.desk().books();
      check(books.invoices() != nullptr && books.beginBatch());
      for (const int end = std::min(receipts, number + kBatch); number < end; ++number) day.receipt();
      check(books.endBatch());
    }
  } catch (...) {
    machine.desk().clock(std::move(before));
    throw;
  }
  machine.desk().clock(std::move(before));
}

}  // namespace

std::int64_t ringUp(Machine& machine, int receipts, std::uint32_t seed) {
  Day day(machine, seed, SeededInvoices::Which::Some);
  ringUp(machine, day, receipts, kSales);
  return day.takings();
}

int ringUpInvoices(Machine& machine, int receipts, std::uint32_t seed) {
  Day day(machine, seed, SeededInvoices::Which::All);
  ringUp(machine, day, receipts, kInvoices);
  return day.issued();
}

}  // namespace ecrsim
