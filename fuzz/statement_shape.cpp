#include "statement_shape.h"

#include <string>
#include <string_view>

#include "platform/store/keywords.h"
#include "platform/store/lexer.h"

namespace {

using store::Keyword;
using store::Lexer;
using store::Token;
using store::TokenKind;

bool anyNumber(const Token& wanted) {
  static const std::string number = std::to_string(kAnyNumber);
  return wanted.kind == TokenKind::Number && wanted.whole == number;
}

bool sign(const Token& token) {
  return token.whole == "-" || token.whole == "+";
}

bool truth(const Token& token) {
  const Keyword word = token.kind == TokenKind::Word ? store::RecogniseKeyword(token.whole) : Keyword::None;
  return word == Keyword::True || word == Keyword::False;
}

/// A text whose value may be any, what stands around it in the literal aside.
bool sameText(const Token& found, const Token& wanted) {
  static const std::string any = kAnyText.toStdString();
  const std::size_t at = wanted.inside.find(any);
  if (at == std::string_view::npos) return found.whole == wanted.whole;
  const std::string_view before = wanted.inside.substr(0, at);
  const std::string_view behind = wanted.inside.substr(at + any.size());
  return found.inside.size() >= before.size() + behind.size() && found.inside.starts_with(before) &&
         found.inside.ends_with(behind) && found.whole.front() == wanted.whole.front();
}

bool sameToken(Lexer& built, const Token& wanted) {
  Token found = built.next();
  if (anyNumber(wanted)) {
    if (sign(found)) found = built.next();
    return found.kind == TokenKind::Number;
  }
  if (truth(wanted)) return truth(found);
  if (found.kind != wanted.kind) return false;
  return wanted.kind == TokenKind::Text ? sameText(found, wanted) : found.whole == wanted.whole;
}

}  // namespace

bool sameShape(const QString& statement, const QString& pattern) {
  const std::string built = statement.toStdString();
  const std::string model = pattern.toStdString();
  Lexer left(built);
  Lexer right(model);
  try {
    for (Token wanted = right.next(); wanted.kind != TokenKind::End; wanted = right.next())
      if (!sameToken(left, wanted)) return false;
    return left.next().kind == TokenKind::End;
  } catch (const Errore&) {
    return false;
  }
}
