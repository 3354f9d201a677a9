#include "ecrsim/sales_day.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <random>
#include <span>
#include <stdexcept>
#include <string>

#include "config/image.h"
#include "ecrcom/codes.h"
#include "ecrsim/known_files.h"

namespace ecrsim {
namespace {

constexpr std::uint32_t kMaxRows = 8;
constexpr std::uint32_t kMaxPieces = 6;
/// One line in so many is discounted, by so much in the hundred.
constexpr std::uint32_t kOneDiscountIn = 10;
constexpr std::int64_t kDiscountPercent = 10;
/// Where the three arrays of venduto.bin begin.
constexpr std::size_t kAmounts = 0;
constexpr std::size_t kPieces = kPlaces * 4;
constexpr std::size_t kDiscounts = 2 * kPlaces * 4;
static_assert(kPlaces == config::kNumeroPLU);

struct Article {
  std::size_t place;
  std::string description;
  std::int32_t price;
};

struct Row {
  const Article* article;
  std::int32_t pieces;
  std::int64_t amount;
  std::int64_t discount;
};

std::int32_t integer(ecrcom::Bytes byte, std::size_t start) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i > 0; --i) value = value << 8U | byte[start + i - 1];
  return static_cast<std::int32_t>(value);
}

void add(std::span<std::uint8_t> byte, std::size_t start, std::int64_t scale) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::int64_t sum =
      std::clamp<std::int64_t>(integer(byte, start) + scale, Limits::min(), Limits::max());
  for (std::size_t i = 0; i < 4; ++i)
    byte[start + i] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(sum) >> 8U * i);
}

std::string text(ecrcom::Bytes record, const config::Campo& field) {
  const auto start = record.begin() + static_cast<std::ptrdiff_t>(field.inizio);
  return {start, std::find(start, start + static_cast<std::ptrdiff_t>(field.larghezza), std::uint8_t{0})};
}

std::vector<Article> articles(ecrcom::Bytes byte) {
  std::vector<Article> found;
  const std::size_t count = std::min(byte.size() / config::kBytePLU, kPlaces);
  for (std::size_t place = 0; place < count; ++place) {
    const ecrcom::Bytes record = byte.subspan(place * config::kBytePLU, config::kBytePLU);
    std::string description = text(record, config::plu::kDescrizione);
    if (description.empty() && text(record, config::plu::kCodiceEAN).empty()) continue;
    found.push_back({place, std::move(description), integer(record, config::plu::kPrezzo.inizio)});
  }
  return found;
}

/// The generator's numbers are fixed by the standard; its distributions are not, hence the remainders.
Row tap(std::mt19937& which, const std::vector<Article>& articles) {
  const Article& article = articles[which() % articles.size()];
  const auto pieces = static_cast<std::int32_t>(1 + which() % kMaxPieces);
  const std::int64_t amount = std::int64_t{article.price} * pieces;
  const std::int64_t discount = which() % kOneDiscountIn == 0 ? amount * kDiscountPercent / 100 : 0;
  return {&article, pieces, amount, discount};
}

void count(std::span<std::uint8_t> sales, const Row& row) {
  const std::size_t counter = row.article->place * 4;
  add(sales, kAmounts + counter, row.amount);
  add(sales, kPieces + counter, row.pieces);
  add(sales, kDiscounts + counter, row.discount);
}

std::string euro(std::int64_t cents) {
  std::array<char, 32> text;
  const std::int64_t absolute = cents < 0 ? -cents : cents;
  std::snprintf(text.data(), text.size(), "%s%lld,%02lld", cents < 0 ? "-" : "",
                static_cast<long long>(absolute / 100), static_cast<long long>(absolute % 100));
  return text.data();
}

std::string print(const Row& row) {
  std::string text = "  " + std::to_string(row.pieces) + " x " + row.article->description + "  " +
                     euro(row.article->price) + "  " + euro(row.amount) + "\r\n";
  if (row.discount != 0) text += "    SCONTO  -" + euro(row.discount) + "\r\n";
  return text;
}

std::vector<std::uint8_t> counters(const Memory& memory) {
  std::vector<std::uint8_t> sales;
  if (memory.read(kSalesFile, sales) != ecrcom::kDone) sales.clear();
  sales.resize(kSalesBytes);
  return sales;
}

/// One receipt: counts it, prints it, returns what its lines come to before discounts.
std::int64_t receipt(std::mt19937& which, const std::vector<Article>& articles, std::span<std::uint8_t> sales,
                     std::string& journal) {
  std::int64_t gross = 0;
  std::int64_t discounts = 0;
  for (std::uint32_t rows = 1 + which() % kMaxRows; rows > 0; --rows) {
    const Row row = tap(which, articles);
    count(sales, row);
    journal += print(row);
    gross += row.amount;
    discounts += row.discount;
  }
  journal += "  TOTALE  " + euro(gross - discounts) + "\r\n";
  return gross;
}

}  // namespace

std::int64_t ringUp(const Memory& memory, int receipts, std::uint32_t seed) {
  std::vector<std::uint8_t> archive;
  if (memory.read(kPluFile, archive) != ecrcom::kDone) return 0;
  const std::vector<Article> onSale = articles(archive);
  if (onSale.empty() || receipts <= 0) return 0;
  std::vector<std::uint8_t> sales = counters(memory);
  std::mt19937 which(seed);
  std::string journal;
  std::int64_t takings = 0;
  for (int number = 1; number <= receipts; ++number) {
    journal += "SCONTRINO " + std::to_string(number) + "\r\n";
    takings += receipt(which, onSale, sales, journal);
  }
  if (memory.write(kSalesFile, sales) != ecrcom::kDone || !memory.note(kJournalFile, journal))
    throw std::runtime_error("memoria della cassa non scrivibile");
  return takings;
}

}  // namespace ecrsim
