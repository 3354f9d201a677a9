#include "platform/store/like_pattern.h"

#include <QChar>
#include <cstdint>

namespace store {

namespace {

constexpr char32_t kUnknown = 0xFFFD;
constexpr unsigned char kLastAscii = 0x7E;

/// Takes one character off the front; a byte that begins no UTF-8 character counts as one by itself.
char32_t take(std::string_view& text) {
  const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  std::size_t length = first < 0x80 ? 1 : first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 0;
  if (length == 1) {
    text.remove_prefix(1);
    return first;
  }
  if (length == 0 || length > text.size()) {
    text.remove_prefix(1);
    return kUnknown;
  }
  char32_t point = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) point = (point << 6U) | (byte(i) & 0x3FU);
  text.remove_prefix(length);
  return point;
}

char32_t folded(char32_t point) {
  if (point < 0x80) return point >= 'A' && point <= 'Z' ? point + ('a' - 'A') : point;
  return point > QChar::LastValidCodePoint ? point : QChar::toCaseFolded(point);
}

/// Is `point` in the set whose inside is `set`, as `a-z09` or `!a-z`?
bool inSet(std::string_view set, char32_t point) {
  const bool excluded = !set.empty() && set.front() == '!';
  if (excluded) set.remove_prefix(1);
  bool found = false;
  while (!set.empty()) {
    const char32_t first = folded(take(set));
    char32_t last = first;
    if (set.size() > 1 && set.front() == '-') {
      set.remove_prefix(1);
      last = folded(take(set));
    }
    found = found || (point >= first && point <= last);
  }
  return found != excluded;
}

/// Matches one element of the pattern, which is no `*`, against the front of the text and takes both off.
bool element(std::string_view& pattern, std::string_view& text) {
  const std::size_t closed = pattern.front() == '[' ? pattern.find(']') : std::string_view::npos;
  if (closed == 1) {  // "[]" stands for no character
    pattern.remove_prefix(2);
    return true;
  }
  if (text.empty()) return false;
  const char32_t point = folded(take(text));
  if (closed != std::string_view::npos) {
    const std::string_view set = pattern.substr(1, closed - 1);
    pattern.remove_prefix(closed + 1);
    return inSet(set, point);
  }
  const char32_t expected = take(pattern);
  if (expected == '?') return true;
  if (expected == '#') return point >= '0' && point <= '9';
  return folded(expected) == point;
}

}  // namespace

bool MatchesPattern(std::string_view pattern, std::string_view text) {
  std::string_view patternAfterStar;
  std::string_view textAfterStar;
  bool star = false;
  while (!text.empty() || !pattern.empty()) {
    if (!pattern.empty() && pattern.front() == '*') {
      pattern.remove_prefix(1);
      if (pattern.empty()) return true;
      star = true;
      patternAfterStar = pattern;
      textAfterStar = text;
      continue;
    }
    if (!pattern.empty() && element(pattern, text)) continue;
    if (!star || textAfterStar.empty()) return false;
    take(textAfterStar);
    pattern = patternAfterStar;
    text = textAfterStar;
  }
  return true;
}

bool ValidPattern(std::string_view pattern) {
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '[') continue;
    i = pattern.find(']', i);
    if (i == std::string_view::npos) return false;
  }
  return true;
}

std::string_view FixedPrefix(std::string_view pattern) {
  std::size_t end = 0;
  while (end < pattern.size()) {
    const auto byte = static_cast<unsigned char>(pattern[end]);
    if (byte == 0 || byte > kLastAscii) break;
    if (pattern[end] == '*' || pattern[end] == '?' || pattern[end] == '#' || pattern[end] == '[') break;
    ++end;
  }
  return pattern.substr(0, end);
}

}  // namespace store
