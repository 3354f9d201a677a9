#include "demo/expectations.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace expectations {

namespace {

constexpr std::size_t kSlot = 5000;
constexpr std::size_t kRecord = 48;

std::vector<std::string> fields(const std::string& row) {
  std::vector<std::string> pieces(1);
  for (const char c : row) {
    if (c == ';')
      pieces.emplace_back();
    else
      pieces.back() += c;
  }
  return pieces;
}

std::int32_t cents(const std::string& price) {
  const std::size_t comma = price.find_first_of(",.");
  std::string decimals = comma == std::string::npos ? "" : price.substr(comma + 1);
  decimals.resize(2, '0');
  return std::stoi(price.substr(0, comma)) * 100 + std::stoi(decimals);
}

void lay(std::string& image, std::size_t start, std::int32_t value) {
  for (int i = 0; i < 4; ++i)
    image[start + static_cast<std::size_t>(i)] =
        static_cast<char>((static_cast<std::uint32_t>(value) >> (8 * i)) & 0xff);
}

std::int32_t take(const std::string& byte, std::size_t start) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i)
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(byte.at(start + i))) << (8 * i);
  return static_cast<std::int32_t>(value);
}

}  // namespace

std::string readFile(const std::filesystem::path& file) {
  std::ifstream entered(file, std::ios::binary);
  if (!entered) throw std::runtime_error("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(entered), {}};
}

std::vector<Article> readList(const std::filesystem::path& file) {
  std::vector<Article> articles;
  std::istringstream text(readFile(file));
  for (std::string row; std::getline(text, row);) {
    if (!row.empty() && row.back() == '\r') row.pop_back();
    const std::vector<std::string> values = fields(row);
    if (values.size() != 9) throw std::runtime_error("not nine fields: " + row);
    articles.push_back(
        {std::stoi(values[0]), values[1], values[2], values[3], cents(values[4]), std::stoi(values[5])});
  }
  return articles;
}

std::string pluImage(const std::vector<Article>& articles) {
  std::string image(kSlot * kRecord, '\0');
  for (const Article& article : articles) {
    const std::size_t start = static_cast<std::size_t>(article.slot - 1) * kRecord;
    const std::string description = article.description.substr(0, 24);
    image.replace(start, description.size(), description);
    image[start + 25] = static_cast<char>(article.department - 1);
    lay(image, start + 27, article.price);
    const std::string ean = article.ean.substr(0, 14);
    image.replace(start + 31, ean.size(), ean);
  }
  return image;
}

std::vector<Sales> readSales(const std::filesystem::path& file) {
  const std::string byte = readFile(file);
  std::vector<Sales> sold;
  for (std::size_t i = 0; i < kSlot; ++i) {
    const Sales one{static_cast<int>(i) + 1, take(byte, 4 * i), take(byte, 4 * (kSlot + i)),
                    take(byte, 4 * (2 * kSlot + i))};
    if (one.pieces > 0) sold.push_back(one);
  }
  return sold;
}

}  // namespace expectations
