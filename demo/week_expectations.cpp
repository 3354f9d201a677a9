#include "demo/week_expectations.h"

#include <sstream>
#include <stdexcept>

namespace expectations {

std::int64_t takings(const std::vector<Sales>& sold) {
  std::int64_t sum = 0;
  for (const Sales& one : sold) sum += std::int64_t{one.amount} - one.discount;
  return sum;
}

std::vector<Closure> readClosures(const std::filesystem::path& file) {
  std::vector<Closure> closures;
  std::istringstream text(readFile(file));
  for (std::string row; std::getline(text, row);) {
    std::istringstream words(row);
    Closure one;
    std::string time;
    words >> one.number >> one.day >> time >> one.receipts >> one.total >> one.grandTotal;
    if (!words) throw std::runtime_error("no closure: " + row);
    closures.push_back(one);
  }
  return closures;
}

}  // namespace expectations
