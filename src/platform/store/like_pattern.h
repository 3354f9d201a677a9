#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace store {

/// Takes the first character off a text that has one. Broken UTF-8 is cut as the engine's own functions cut
/// it, so that patterns and lengths count alike: a byte that begins no character stands for itself, one that
/// begins some takes every continuation byte behind it, and what comes out as no character, or as one that
/// ought to be shorter than two bytes, is U+FFFD.
char32_t TakeCharacter(std::string_view& text);

/// The dialect's LIKE on UTF-8: `*` any text, `?` one character, `#` one digit, `[a-z]` and `[!a-z]` sets.
/// Letter case does not matter, accented letters included.
bool MatchesPattern(std::string_view pattern, std::string_view text);
/// The same, within a number of comparisons, which is counted down: nothing where it does not suffice. A
/// pattern of many characters behind a `*` takes the product of its length and the text's.
std::optional<bool> MatchesPattern(std::string_view pattern, std::string_view text, std::size_t comparisons);

/// False where a `[` is never closed: such a pattern is an error of the statement.
bool ValidPattern(std::string_view pattern);

/// The longest fixed beginning of a pattern that an index in the NOCASE collation keeps together: it ends
/// before the first wild card and before the first character beyond ASCII, whose case that collation does
/// not fold.
std::string_view FixedPrefix(std::string_view pattern);

}  // namespace store
