#pragma once

#include <cstdint>
#include <string_view>

namespace store {

/// The words that the dialect gives a meaning to. Any other word is a name.
enum class Keyword : std::uint8_t {
  None,
  Alter,
  All,
  And,
  As,
  Asc,
  Between,
  By,
  Cascade,
  Create,
  Delete,
  Desc,
  Distinct,
  Drop,
  Exists,
  Explain,
  False,
  From,
  Group,
  Having,
  In,
  Inner,
  Insert,
  Into,
  Is,
  Join,
  Left,
  Like,
  Not,
  Null,
  On,
  Or,
  Order,
  Outer,
  Plan,
  Query,
  Right,
  Select,
  Set,
  True,
  Union,
  Update,
  Values,
  Where
};

/// Letter case does not matter. Parola::Nessuna for a name.
Keyword RecogniseKeyword(std::string_view text);
/// How the word is written in the translated statement.
std::string_view KeywordText(Keyword word);

/// The translated name of a function of the dialect, empty for an unknown one.
std::string_view TranslatedFunction(std::string_view name);

/// Equality of ASCII texts, letter case aside.
bool EqualCaseless(std::string_view first, std::string_view second);

}  // namespace store
