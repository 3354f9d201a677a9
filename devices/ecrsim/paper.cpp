#include "ecrsim/paper.h"

#include <algorithm>

namespace ecrsim {
namespace {

constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kDelete = 0x7F;

std::string printable(std::string_view text) {
  std::string clean(text);
  for (char& one : clean) {
    const auto byte = static_cast<unsigned char>(one);
    if (byte < kFirstPrintable || byte == kDelete) one = '?';
  }
  return clean;
}

}  // namespace

std::string row(std::string_view left, std::string_view right, std::size_t width) {
  const std::string end = printable(right.substr(0, width));
  const std::size_t gap = end.empty() ? 0 : 1;
  const std::size_t room = width - std::min(width, end.size() + gap);
  std::string line = printable(left.substr(0, room));
  if (end.empty()) return line;
  line.resize(width - end.size(), ' ');
  return line + end;
}

std::string centred(std::string_view text) {
  const std::string clean = printable(text.substr(0, kPaperWidth));
  return std::string((kPaperWidth - clean.size()) / 2, ' ') + clean;
}

void Paper::print(const std::string& line) {
  document_.push_back(line);
  if (watcher_) watcher_(line);
}

}  // namespace ecrsim
