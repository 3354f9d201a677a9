#include "platform/store/statement_shapes.h"

#include <algorithm>
#include <charconv>

namespace store {

namespace {

/// Digits that fit a 64-bit integer whatever they are.
constexpr std::size_t kSafeDigits = 18;

bool digit(char c) {
  return c >= '0' && c <= '9';
}

/// What may follow a whole number without belonging to it. Anything else goes the long way.
bool endsNumber(char c) {
  return std::string_view(" ,);=<>+-*/\r\n\t").find(c) != std::string_view::npos;
}

bool integer(std::string_view source, std::size_t& here, Parameter& parameter) {
  std::size_t end = here;
  while (end < source.size() && digit(source[end])) ++end;
  if (end == here || end - here > kSafeDigits) return false;
  if (end < source.size() && !endsNumber(source[end])) return false;
  std::from_chars(source.data() + here, source.data() + end, parameter.integer);
  here = end;
  return true;
}

bool text(std::string_view source, std::size_t& here, char quote, Parameter& parameter) {
  if (here >= source.size() || source[here] != quote) return false;
  const std::size_t closing = source.find(quote, here + 1);
  if (closing == std::string_view::npos) return false;
  // A doubled quote goes on with the text.
  if (closing + 1 < source.size() && source[closing + 1] == quote) return false;
  parameter.text = source.substr(here + 1, closing - here - 1);
  here = closing + 1;
  return true;
}

}  // namespace

bool StatementShape::fillLiteral(std::string_view source, std::size_t& here,
                                 const Translation::Literal& literal) {
  Parameter& parameter = translation_.parameters[literal.parameter];
  return parameter.kind == Parameter::Kind::Text ? text(source, here, pattern_[literal.start], parameter)
                                                 : integer(source, here, parameter);
}

bool StatementShape::fillIn(std::string_view source) {
  if (!translation_.reusable || source.find('\0') != std::string_view::npos) return false;
  const std::string_view pattern = pattern_;
  std::size_t here = 0;
  std::size_t there = 0;
  for (const Translation::Literal& literal : translation_.literals) {
    const std::size_t fixed = literal.start - there;
    if (source.substr(here, fixed) != pattern.substr(there, fixed)) return false;
    here += fixed;
    if (!fillLiteral(source, here, literal)) return false;
    there = literal.start + literal.length;
  }
  return source.substr(here) == pattern.substr(there);
}

void StatementShape::rebuild(std::string_view source, const Dictionary& dictionary) {
  Translate(source, dictionary, translation_);
  if (translation_.reusable) pattern_ = source;
}

const Translation& StatementShapes::translate(std::string_view source, const Dictionary& dictionary) {
  for (StatementShape& shape : shapes_)
    if (shape.fillIn(source)) return shape.translation();
  StatementShape& shape = shapes_[next_];
  shape.rebuild(source, dictionary);
  if (shape.translation().reusable) next_ = (next_ + 1) % shapes_.size();
  return shape.translation();
}

}  // namespace store
