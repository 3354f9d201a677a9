#include "ecrsim/sales_day.h"

#include <algorithm>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace ecrsim {
namespace {

constexpr std::uint32_t kMaxRows = 8;
constexpr std::uint32_t kMaxPieces = 6;
/// One line in so many is discounted.
constexpr std::uint32_t kOneDiscountIn = 10;
constexpr const char* kDiscount = "10,00*1M";
/// Receipts that are written to the memory at once.
constexpr int kBatch = 1000;
constexpr int kOpens = (8 * 60 + 30) * 60;
constexpr int kOpenSeconds = 11 * 60 * 60;

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

/// A clock that goes through the opening hours of one date, as far as receipt `number` of `count`.
Moment timeOf(Moment date, int number, int count) {
  const int second = kOpens + static_cast<int>(std::int64_t{kOpenSeconds} * number / count);
  date.hour = second / 3600;
  date.minute = second / 60 % 60;
  date.second = second % 60;
  return date;
}

class Day {
 public:
  Day(Machine& machine, std::uint32_t seed)
      : machine_(machine), which_(seed), articles_(articles(machine.desk().programme())) {}

  bool empty() const { return articles_.empty(); }
  Cents takings() const { return takings_; }
  void receipt() {
    for (std::uint32_t rows = 1 + which_() % kMaxRows; rows > 0; --rows) row();
    press("1T");
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
  /// Whether the till took it. The lamp is put out, so that the day goes on without what it refuses.
  bool press(const std::string& keys) {
    std::vector<LineAnswer> answers;
    machine_.type(keys, answers);
    const bool taken = !machine_.error();
    if (machine_.memoryFailed()) throw std::runtime_error("memoria della cassa non scrivibile");
    if (!taken) machine_.type("c", answers);
    return taken;
  }

  Machine& machine_;
  std::mt19937 which_;
  std::vector<Article> articles_;
  Cents takings_ = 0;
};

void check(bool done) {
  if (!done) throw std::runtime_error("memoria della cassa non leggibile o non scrivibile");
}

}  // namespace

std::int64_t ringUp(Machine& machine, int receipts, std::uint32_t seed) {
  Day day(machine, seed);
  if (day.empty() || receipts <= 0) return 0;
  const Moment date = machine.desk().now();
  int number = 0;
  TillClock before = machine.desk().clock([&] { return timeOf(date, number, receipts); });
  try {
    while (number < receipts) {
      check(machine.desk().books().beginBatch());
      for (const int end = std::min(receipts, number + kBatch); number < end; ++number) day.receipt();
      check(machine.desk().books().endBatch());
    }
  } catch (...) {
    machine.desk().clock(std::move(before));
    throw;
  }
  machine.desk().clock(std::move(before));
  return day.takings();
}

}  // namespace ecrsim
