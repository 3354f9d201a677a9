#include "platform/store/like_pattern.h"
#include "platform/store/translator.h"

namespace store {

namespace {

/// The least text beyond all those that begin with `prefix` in the NOCASE collation, which compares small
/// letters.
std::string beyondPrefix(std::string_view prefix) {
  std::string beyond(prefix);
  char& last = beyond.back();
  if (last >= 'A' && last <= 'Z') last = static_cast<char>(last + ('a' - 'A'));
  last = static_cast<char>(last + 1);
  return beyond;
}

}  // namespace

bool Translator::prefixOnIndex(std::string_view prefix) const {
  return !prefix.empty() && !lastName_.empty() && dictionary_.prefix(lastName_);
}

// The engine does not look into a pattern that is a parameter, and never into one of a LIKE of ours: the
// range that finds the rows by the index is spelled out in front of the pattern. The pattern decides.
void Translator::like(const Token& token) {
  const char quote = lexer_.peek();
  if (quote != '\'' && quote != '"') {
    lastName_ = {};
    return write("LIKE");
  }
  unrepeatable_ = true;
  const Token literal = lexer_.next();
  const std::string_view pattern = content(literal);
  if (!ValidPattern(pattern))
    throw SyntaxError(QStringLiteral("modello di LIKE non valido"), source_, position(token));
  const std::string_view prefix = FixedPrefix(pattern);
  if (prefixOnIndex(prefix)) {
    const std::string column = outcome_.sql.substr(nameStart_);
    textParameter(prefix);
    textParameter(keep(beyondPrefix(prefix)));
    outcome_.sql.insert(nameStart_, "( ");
    write(">= ? AND " + column + "< ? AND " + column + "LIKE ? )");
  } else {
    write("LIKE ?");
  }
  textParameter(pattern);
  lastName_ = {};
  previous_ = Keyword::None;
}

}  // namespace store
