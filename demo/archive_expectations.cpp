#include "demo/archive_expectations.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <stdexcept>

namespace expectations {

namespace {

/// A whole number of units of 1 / 10^decimali as text.
std::string number(std::int64_t value, std::size_t decimals, char decimal) {
  std::string digits = std::to_string(std::abs(value));
  if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
  digits.insert(digits.size() - decimals, 1, decimal);
  return (value < 0 ? "-" : "") + digits;
}

/// Hundredths with three decimals.
std::string withThree(std::int64_t cents, char decimal) {
  return number(cents * 10, 3, decimal);
}

/// `num` / `den` thousandths, halves away from zero.
std::int64_t rounded(std::int64_t num, std::int64_t den) {
  const std::int64_t middle = (2 * std::abs(num) + den) / (2 * den);
  return num < 0 ? -middle : middle;
}

}  // namespace

std::string upperCase(std::string text) {
  for (char& c : text)
    if (static_cast<unsigned char>(c) < 0x80) c = static_cast<char>(std::toupper(c));
  return text;
}

std::vector<Article> startingWith(const std::vector<Article>& articles, const std::string& start) {
  std::vector<Article> found;
  std::ranges::copy_if(articles, std::back_inserter(found), [&](const Article& article) {
    return upperCase(article.description).starts_with(upperCase(start));
  });
  std::ranges::stable_sort(found, {}, &Article::ean);
  return found;
}

std::string csvArticles(const std::vector<Article>& articles, char decimal) {
  std::string text;
  int row = 0;
  for (const Article& article : articles)
    text += std::to_string(++row) + ';' + article.ean + ';' + article.code + ';' + article.description + ';' +
            number(article.price, 2, decimal) + ';' + std::to_string(article.department) + ";N;N; \r\n";
  return text;
}

std::vector<std::string> salesRows(const std::vector<Sales>& sold, const std::vector<Article>& articles,
                                   const std::string& day, char decimal) {
  std::vector<std::string> rows;
  for (const Sales& sales : sold) {
    const Article& article = articles.at(static_cast<std::size_t>(sales.slot - 1));
    // Average: hundredths times ten over pieces are thousandths.
    const std::int64_t mean = rounded(std::int64_t{sales.amount} * 10, sales.pieces);
    rows.push_back(day + ';' + article.code + ';' + article.ean + ';' + article.description + ';' +
                   number(mean, 3, decimal) + ';' + std::to_string(sales.pieces) + ';' +
                   withThree(sales.amount, decimal) + ';' + withThree(sales.discount, decimal));
  }
  return rows;
}

std::string salesTotals(const std::vector<Sales>& sold, char decimal) {
  long double means = 0;
  std::int64_t pieces = 0;
  std::int64_t amounts = 0;
  std::int64_t discounts = 0;
  for (const Sales& sales : sold) {
    means += static_cast<long double>(sales.amount) * 10 / sales.pieces;
    pieces += sales.pieces;
    amounts += sales.amount;
    discounts += sales.discount;
  }
  return "TOTALE;;;;" + number(static_cast<std::int64_t>(means + 0.5L), 3, decimal) + ';' +
         number(pieces * 1000, 3, decimal) + ';' + withThree(amounts, decimal) + ';' +
         withThree(discounts, decimal);
}

std::vector<std::string> crLfLines(const std::string& text) {
  std::vector<std::string> rows;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = text.find("\r\n", start);
    if (end == std::string::npos) throw std::runtime_error("a line without its end");
    rows.push_back(text.substr(start, end - start));
    start = end + 2;
  }
  return rows;
}

}  // namespace expectations
