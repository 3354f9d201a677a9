#pragma once

#include <optional>
#include <string>

/// The language of the keys, one character after the other, as they come over a line.
namespace ecrsim {

enum class Key {
  Amount,          ///< number H
  Times,           ///< number *: a quantity, or a percentage
  Text,            ///< text in double quotes
  Department,      ///< number R
  Plu,             ///< number P
  Subtotal,        ///< =
  Code,            ///< number #
  Operator,        ///< number O
  Message,         ///< @
  ShowQuantity,    ///< G
  OpenNonFiscal,   ///< j
  CloseNonFiscal,  ///< J
  Modifier,        ///< number M
  Payment,         ///< number T
  Reading,         ///< x
  Zeroing,         ///< z
  Function,        ///< number F
  Clear,           ///< c
  Extended,        ///< X, an argument in double quotes or none, number F
  Abort,           ///< Z, two of which stop a dump
  Unknown,         ///< anything else, too long, or without what it needs
};

/// A key with what was typed before it.
struct Stroke {
  Key key = Key::Unknown;
  /// Digits and commas as typed.
  std::string number{};
  std::string text{};
  bool operator==(const Stroke&) const = default;
};

class KeyParser {
 public:
  /// Longest text and longest number.
  static constexpr std::size_t kMaxText = 36;
  static constexpr std::size_t kMaxNumber = 16;

  /// The stroke that this character completes. Blanks between keys mean nothing.
  std::optional<Stroke> feed(char character);
  /// The sequence has ended: digits without a key are forgotten, a text or an X left open is an unknown key.
  std::optional<Stroke> end();
  bool insideText() const { return where_ == Where::Text || where_ == Where::Argument; }

 private:
  enum class Where { Keys, Text, Extended, Argument };

  std::optional<Stroke> plain(char character);
  std::optional<Stroke> quoted(char character);
  std::optional<Stroke> extended(char character);
  std::optional<Stroke> opens(Where what);
  Stroke complete(Key key);

  Where where_ = Where::Keys;
  std::string number_;
  std::string text_;
  bool argument_ = false;
  bool tooLong_ = false;
};

}  // namespace ecrsim
