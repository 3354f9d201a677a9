#include <array>

#include "platform/store/functions.h"
#include "platform/store/translator.h"

namespace store {

namespace {

/// The mask that leaves nothing out but the century: two moments look alike in it if they are alike in their
/// sortable form behind it.
constexpr std::string_view kWholeMoment = "dd/mm/yy hh:mm:ss";
/// Digits of the century in the sortable form.
constexpr std::string_view kBehindCentury = "3";

}  // namespace

// The rows whose column, formatted, is a text: asked a thousand times by a reception, each time of all the
// invoices of a customer. What the index knows is spelled out in front, the form decides.
bool Translator::momentComparison() {
  Lexer ahead = lexer_;
  std::array<Token, 7> tokens;
  for (Token& token : tokens) token = ahead.next();
  const auto& [opening, column, comma, mask, closing, equal, text] = tokens;
  const bool named = column.kind == TokenKind::Word || column.kind == TokenKind::BracketedName;
  const bool compared = opening.whole == "(" && named && comma.whole == "," && mask.kind == TokenKind::Text &&
                        mask.inside == kWholeMoment && closing.whole == ")" && equal.whole == "=" &&
                        text.kind == TokenKind::Text;
  if (!compared || text.doubledQuote || !dictionary_.moment(column.inside)) return false;
  lexer_ = ahead;
  const std::string field = "[" + std::string(column.inside) + "] ";
  remember(mask.whole);
  textParameter(mask.inside);
  const std::string form = "?" + std::to_string(outcome_.parameters.size()) + " ";
  remember(text.whole);
  textParameter(text.inside);
  const std::string value = "?" + std::to_string(outcome_.parameters.size()) + " ";
  write("( substr( " + field + ", " + std::string(kBehindCentury) + " ) = " + kShortMomentFunction + "( " +
        value + ") AND " + kFormatFunction + "( " + field + ", " + form + ") = " + value + ")");
  lastName_ = {};
  previous_ = Keyword::None;
  return true;
}

/// A text that is the whole value of a column of date and time in an INSERT without a list of columns.
bool Translator::isWholeMomentValue() {
  if (!values_.startsValue() || !dictionary_.momentAt(values_.table(), values_.place())) return false;
  const char behind = lexer_.peek();
  return behind == ',' || behind == ')';
}

}  // namespace store
