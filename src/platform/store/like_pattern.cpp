#include "platform/store/like_pattern.h"

#include <QChar>
#include <bit>
#include <limits>

namespace store {

namespace {

constexpr char32_t kUnknown = 0xFFFD;
constexpr char32_t kFirstBeyondAscii = 0x80;
constexpr unsigned char kLastAscii = 0x7E;

bool continues(std::string_view text) {
  return !text.empty() && (static_cast<unsigned char>(text.front()) & 0xC0U) == 0x80;
}

/// No character beyond ASCII folds into it: the long s and the Kelvin sign are no `s` and no `k` to the range
/// that stands in front of a pattern either.
char32_t folded(char32_t point) {
  if (point < kFirstBeyondAscii) return point >= 'A' && point <= 'Z' ? point + ('a' - 'A') : point;
  if (point > QChar::LastValidCodePoint) return point;
  const char32_t fold = QChar::toCaseFolded(point);
  return fold < kFirstBeyondAscii ? point : fold;
}

/// Is `point` in the set whose inside is `set`, as `a-z09` or `!a-z`?
bool inSet(std::string_view set, char32_t point) {
  const bool excluded = !set.empty() && set.front() == '!';
  if (excluded) set.remove_prefix(1);
  bool found = false;
  while (!set.empty()) {
    const char32_t first = folded(TakeCharacter(set));
    char32_t last = first;
    if (set.size() > 1 && set.front() == '-') {
      set.remove_prefix(1);
      last = folded(TakeCharacter(set));
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
  const char32_t point = folded(TakeCharacter(text));
  if (closed != std::string_view::npos) {
    const std::string_view set = pattern.substr(1, closed - 1);
    pattern.remove_prefix(closed + 1);
    return inSet(set, point);
  }
  const char32_t expected = TakeCharacter(pattern);
  if (expected == '?') return true;
  if (expected == '#') return point >= '0' && point <= '9';
  return folded(expected) == point;
}

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (first < 0xC0) return first;
  char32_t point = first & (0x7FU >> static_cast<unsigned>(std::countl_one(first)));
  for (; continues(text); text.remove_prefix(1))
    point = (point << 6U) + (static_cast<unsigned char>(text.front()) & 0x3FU);
  const bool surrogate = (point & 0xFFFFF800U) == 0xD800;
  const bool noCharacter = (point & 0xFFFFFFFEU) == 0xFFFE;
  return point < kFirstBeyondAscii || surrogate || noCharacter ? kUnknown : point;
}

bool MatchesPattern(std::string_view pattern, std::string_view text) {
  return *MatchesPattern(pattern, text, std::numeric_limits<std::size_t>::max());
}

std::optional<bool> MatchesPattern(std::string_view pattern, std::string_view text, std::size_t comparisons) {
  std::string_view patternAfterStar;
  std::string_view textAfterStar;
  bool star = false;
  while (!text.empty() || !pattern.empty()) {
    // A set is read to its end.
    const std::size_t needed = !pattern.empty() && pattern.front() == '[' ? pattern.size() : 1;
    if (needed > comparisons) return std::nullopt;
    comparisons -= needed;
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
    TakeCharacter(textAfterStar);
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
