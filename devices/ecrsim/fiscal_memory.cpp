#include "ecrsim/fiscal_memory.h"

#include <array>
#include <cstdio>
#include <utility>

#include "ecrcom/codes.h"
#include "ecrsim/known_files.h"

namespace ecrsim {
namespace {

// "0001 22/11/2026 18:30:00 000012 000000000012345 000000000099999 9a3c55e1" and CR LF.
constexpr std::size_t kLineBytes = 74;

std::string line(const Closure& closure) {
  std::array<char, 128> text;
  std::snprintf(text.data(), text.size(), "%04d %s %06d %015lld %015lld ", closure.number,
                longText(closure.when).c_str(), closure.receipts, static_cast<long long>(closure.total),
                static_cast<long long>(closure.grandTotal));
  const std::string body = text.data();
  std::snprintf(text.data(), text.size(), "%08x\r\n", ecrcom::extendChecksum(0, ecrcom::byteOf(body)));
  return body + text.data();
}

/// A total of refunds alone is below zero: the sign takes a zero's place.
std::optional<Cents> amountAt(std::string_view text, std::size_t place) {
  constexpr std::size_t kWidth = 15;
  const bool negative = text[place] == '-';
  const auto value = integerOf(text.substr(place + (negative ? 1 : 0), kWidth - (negative ? 1 : 0)), kWidth);
  if (!value) return std::nullopt;
  return negative ? -*value : *value;
}

std::optional<Closure> parse(std::string_view text) {
  const auto number = integerOf(text.substr(0, 4), 4);
  const auto when = momentOf(text.substr(5, 19));
  const auto receipts = integerOf(text.substr(25, 6), 6);
  const auto total = amountAt(text, 32);
  const auto grand = amountAt(text, 48);
  if (!number || !when || !receipts || !total || !grand) return std::nullopt;
  const Closure closure{static_cast<int>(*number), *when, static_cast<int>(*receipts), *total, *grand};
  if (line(closure) != text) return std::nullopt;
  return closure;
}

}  // namespace

std::optional<std::vector<Closure>> FiscalMemory::closures() const {
  if (!refresh()) return std::nullopt;
  return closures_;
}

bool FiscalMemory::refresh() const {
  std::vector<std::uint8_t> byte;
  if (memory_.has(kFiscalMemoryFile) && memory_.read(kFiscalMemoryFile, byte) != ecrcom::kDone) return false;
  const std::string text(byte.begin(), byte.end());
  if (text == text_) return true;
  if (text.size() % kLineBytes != 0) return false;
  std::vector<Closure> all;
  for (std::size_t place = 0; place < text.size(); place += kLineBytes) {
    const auto closure = parse(std::string_view(text).substr(place, kLineBytes));
    if (!closure || closure->number != static_cast<int>(all.size()) + 1) return false;
    all.push_back(*closure);
  }
  text_ = text;
  closures_ = std::move(all);
  return true;
}

bool FiscalMemory::add(const Closure& closure) const {
  if (!refresh()) return false;
  const std::string text = text_ + line(closure);
  return memory_.write(kFiscalMemoryFile, ecrcom::byteOf(text)) == ecrcom::kDone;
}

}  // namespace ecrsim
