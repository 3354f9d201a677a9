#include "ecrsim/key_parser.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ecrsim {
namespace {

enum class Number { Needed, Refused, Forgotten };

struct KeyCap {
  char character;
  Key key;
  Number number;
};

constexpr std::array kCaps{
    KeyCap{'H', Key::Amount, Number::Needed},          KeyCap{'*', Key::Times, Number::Needed},
    KeyCap{'R', Key::Department, Number::Needed},      KeyCap{'P', Key::Plu, Number::Needed},
    KeyCap{'=', Key::Subtotal, Number::Refused},       KeyCap{'#', Key::Code, Number::Needed},
    KeyCap{'O', Key::Operator, Number::Needed},        KeyCap{'@', Key::Message, Number::Refused},
    KeyCap{'G', Key::ShowQuantity, Number::Refused},   KeyCap{'j', Key::OpenNonFiscal, Number::Refused},
    KeyCap{'J', Key::CloseNonFiscal, Number::Refused}, KeyCap{'M', Key::Modifier, Number::Needed},
    KeyCap{'T', Key::Payment, Number::Needed},         KeyCap{'x', Key::Reading, Number::Refused},
    KeyCap{'z', Key::Zeroing, Number::Refused},        KeyCap{'F', Key::Function, Number::Needed},
    KeyCap{'c', Key::Clear, Number::Forgotten},        KeyCap{'Z', Key::Abort, Number::Forgotten},
};

bool partOfNumber(char character) {
  return (character >= '0' && character <= '9') || character == ',';
}

}  // namespace

std::optional<Stroke> KeyParser::feed(char character) {
  switch (where_) {
    case Where::Keys:
      return plain(character);
    case Where::Text:
    case Where::Argument:
      return quoted(character);
    case Where::Extended:
      return extended(character);
  }
  return std::nullopt;
}

std::optional<Stroke> KeyParser::end() {
  const bool unfinished = where_ != Where::Keys;
  const Stroke rest = complete(Key::Unknown);
  return unfinished ? std::optional(rest) : std::nullopt;
}

std::optional<Stroke> KeyParser::plain(char character) {
  if (character == ' ') return std::nullopt;
  if (partOfNumber(character)) {
    tooLong_ = tooLong_ || number_.size() == kMaxNumber;
    if (!tooLong_) number_ += character;
    return std::nullopt;
  }
  if (character == '"') return opens(Where::Text);
  if (character == 'X') return opens(Where::Extended);
  const auto cap =
      std::find_if(kCaps.begin(), kCaps.end(), [&](const KeyCap& one) { return one.character == character; });
  if (cap == kCaps.end()) return complete(Key::Unknown);
  if (cap->number == Number::Forgotten) {
    number_.clear();
    tooLong_ = false;
  }
  const bool typed = !number_.empty();
  return complete(!tooLong_ && typed == (cap->number == Number::Needed) ? cap->key : Key::Unknown);
}

/// A text goes on to its closing quotes even when it is too long: what is in it must never be taken for keys.
std::optional<Stroke> KeyParser::quoted(char character) {
  if (character != '"') {
    tooLong_ = tooLong_ || text_.size() == kMaxText;
    if (!tooLong_) text_ += character;
    return std::nullopt;
  }
  if (where_ == Where::Argument) {
    where_ = Where::Extended;
    return std::nullopt;
  }
  return complete(tooLong_ ? Key::Unknown : Key::Text);
}

std::optional<Stroke> KeyParser::extended(char character) {
  if (character == ' ') return std::nullopt;
  if (character == '"' && !argument_ && number_.empty()) {
    argument_ = true;
    where_ = Where::Argument;
    return std::nullopt;
  }
  if (partOfNumber(character)) {
    tooLong_ = tooLong_ || number_.size() == kMaxNumber;
    if (!tooLong_) number_ += character;
    return std::nullopt;
  }
  if (character == 'F') return complete(tooLong_ || number_.empty() ? Key::Unknown : Key::Extended);
  const Stroke lost = complete(Key::Unknown);
  // An X that noise put in front of another one must not swallow it.
  if (character == 'X') where_ = Where::Extended;
  return lost;
}

/// What begins with a character of its own takes no digits before it.
std::optional<Stroke> KeyParser::opens(Where what) {
  const bool digits = !number_.empty();
  std::optional<Stroke> lost;
  if (digits) lost = complete(Key::Unknown);
  where_ = what;
  return lost;
}

Stroke KeyParser::complete(Key key) {
  Stroke stroke{key, std::exchange(number_, {}), std::exchange(text_, {})};
  if (key == Key::Unknown) stroke = {};
  where_ = Where::Keys;
  argument_ = false;
  tooLong_ = false;
  return stroke;
}

}  // namespace ecrsim
