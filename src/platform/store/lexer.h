#pragma once

#include <cstdint>
#include <string_view>

#include "platform/error.h"

namespace store {

enum class TokenKind : std::uint8_t { End, Word, BracketedName, Text, Number, Date, OperatorSign };

/// One token of a statement, as a window on its text.
struct Token {
  TokenKind kind = TokenKind::End;
  /// The whole token, quotes and brackets included.
  std::string_view whole;
  /// What stands between the quotes or brackets; the whole token where there are none.
  std::string_view inside;
  /// Of a text: its quote stands doubled somewhere within.
  bool doubledQuote = false;
};

/// Cuts a statement's UTF-8 text into tokens, one pass, no copy. Throws Errore 3075 on a quote, bracket or
/// date that is never closed and on a character that begins no token.
class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}

  Token next();
  /// The next character that is no blank, without taking it; 0 at the end.
  char peek();
  std::size_t position() const { return position_; }

 private:
  void skipBlanks();
  Token cut(TokenKind kind, std::size_t start) const;
  Token delimited(TokenKind kind, char closing);
  Token text(char quote);
  Token number();
  Token word();
  Token operatorSign();

  std::string_view text_;
  std::size_t position_ = 0;
};

/// The piece of a statement that a message quotes: from `start`, cut to a readable length.
QString Fragment(std::string_view text, std::size_t start);
/// Errore 3075 that quotes the fragment.
Errore SyntaxError(const QString& reason, std::string_view text, std::size_t start);

}  // namespace store
