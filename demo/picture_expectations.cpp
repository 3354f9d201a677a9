#include "demo/picture_expectations.h"

#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>

#include "demo/expectations.h"

namespace expectations {

namespace {

constexpr std::size_t kDotsPerByte = 8;
/// Of a bitmap file: where its numbers stand, and the length of its two heads.
constexpr std::size_t kRowsAt = 10;
constexpr std::size_t kWidthAt = 18;
constexpr std::size_t kHeightAt = 22;
constexpr std::size_t kBitsAt = 28;
constexpr std::size_t kCompressionAt = 30;
constexpr std::size_t kColoursAt = 54;
constexpr std::size_t kColourBytes = 4;
constexpr std::size_t kFullBytes = 4;  // rows are filled up to whole groups of so many
constexpr int kMiddle = 128;

std::uint32_t number(const std::string& byte, std::size_t start, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;) value = value << 8 | static_cast<unsigned char>(byte.at(start + i));
  return value;
}

bool dark(const std::string& byte, std::size_t colour) {
  const std::size_t start = kColoursAt + colour * kColourBytes;
  return (number(byte, start, 1) + number(byte, start + 1, 1) + number(byte, start + 2, 1)) / 3 < kMiddle;
}

bool bit(const std::string& byte, std::size_t row, std::size_t x) {
  const auto packed = static_cast<unsigned char>(byte.at(row + x / kDotsPerByte));
  return (packed >> (kDotsPerByte - 1 - x % kDotsPerByte) & 1) != 0;
}

std::size_t packedBytes(std::size_t width) {
  return (width + kDotsPerByte - 1) / kDotsPerByte;
}

[[noreturn]] void refuse(const std::filesystem::path& file) {
  throw std::runtime_error("no picture: " + file.string());
}

}  // namespace

Dots readBitmap(const std::filesystem::path& file) {
  const std::string byte = readFile(file);
  if (!byte.starts_with("BM") || number(byte, kBitsAt, 2) != 1 || number(byte, kCompressionAt, 4) != 0)
    refuse(file);
  Dots dots{number(byte, kWidthAt, 4), number(byte, kHeightAt, 4), {}};
  const std::size_t rows = number(byte, kRowsAt, 4);
  const std::size_t stride = (packedBytes(dots.width) + kFullBytes - 1) / kFullBytes * kFullBytes;
  if (rows + stride * dots.height != byte.size()) refuse(file);
  const bool prints[] = {dark(byte, 0), dark(byte, 1)};
  // The file begins with the lowest row.
  for (std::size_t y = dots.height; y-- > 0;)
    for (std::size_t x = 0; x < dots.width; ++x)
      dots.prints.push_back(prints[bit(byte, rows + y * stride, x) ? 1 : 0]);
  return dots;
}

Dots readPaper(const std::filesystem::path& file) {
  const std::string byte = readFile(file);
  std::istringstream head(byte);
  std::string form;
  Dots dots;
  head >> form >> dots.width >> dots.height;
  if (!head || form != "P4") refuse(file);
  const std::size_t rows = static_cast<std::size_t>(head.tellg()) + 1;
  const std::size_t stride = packedBytes(dots.width);
  if (rows + stride * dots.height != byte.size()) refuse(file);
  for (std::size_t y = 0; y < dots.height; ++y)
    for (std::size_t x = 0; x < dots.width; ++x) dots.prints.push_back(bit(byte, rows + y * stride, x));
  return dots;
}

}  // namespace expectations
