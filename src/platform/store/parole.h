#pragma once

#include <cstdint>
#include <string_view>

namespace store {

/// The words that the dialect gives a meaning to. Any other word is a name.
enum class Parola : std::uint8_t {
  Nessuna,
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
Parola RiconosciParola(std::string_view testo);
/// How the word is written in the translated statement.
std::string_view TestoParola(Parola parola);

/// The translated name of a function of the dialect, empty for an unknown one.
std::string_view FunzioneTradotta(std::string_view nome);

/// Equality of ASCII texts, letter case aside.
bool UgualiSenzaMaiuscole(std::string_view primo, std::string_view secondo);

}  // namespace store
