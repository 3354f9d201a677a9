// Patterns of the searches: characters are cut as the engine cuts them, the pattern takes what the engine's
// own LIKE takes, and the range that stands in front of a pattern loses no row that the pattern takes.

#include <sqlite3.h>

#include <QChar>
#include <string>

#include "check.h"
#include "platform/store/date_time.h"
#include "platform/store/keywords.h"
#include "platform/store/like_pattern.h"

namespace {

constexpr char32_t kFirstBeyondAscii = 0x80;
constexpr char kEscape = '\\';

/// The engine's first character of a text, and how many bytes it takes.
sqlite3_stmt* firstCharacter() {
  static sqlite3_stmt* const statement = [] {
    sqlite3* db = nullptr;
    check(sqlite3_open(":memory:", &db) == SQLITE_OK);
    sqlite3_stmt* prepared = nullptr;
    const char* const sql = "SELECT unicode(?1), length(CAST(substr(?1, 1, 1) AS BLOB))";
    check(sqlite3_prepare_v2(db, sql, -1, &prepared, nullptr) == SQLITE_OK);
    return prepared;
  }();
  return statement;
}

/// Cuts a text into characters, each as the engine does. The engine's own texts end at a zero byte.
std::u32string characters(std::string_view text) {
  std::u32string all;
  sqlite3_stmt* const engine = firstCharacter();
  while (!text.empty()) {
    sqlite3_bind_text64(engine, 1, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    check(sqlite3_step(engine) == SQLITE_ROW);
    const auto character = static_cast<char32_t>(static_cast<unsigned>(sqlite3_column_int(engine, 0)));
    const auto bytes = static_cast<std::size_t>(sqlite3_column_int(engine, 1));
    sqlite3_reset(engine);
    const std::size_t before = text.size();
    check(store::TakeCharacter(text) == character && before - text.size() == bytes);
    all.push_back(character);
  }
  return all;
}

/// Whether the dialect sees no more letter cases in it than the engine, which knows those of ASCII only.
bool sameInAnyCase(std::u32string_view text) {
  for (const char32_t c : text)
    if (c >= kFirstBeyondAscii && c <= QChar::LastValidCodePoint && QChar::toCaseFolded(c) != c) return false;
  return true;
}

std::string engineForm(std::string_view pattern) {
  std::string form;
  for (const char c : pattern) {
    if (c == '%' || c == '_' || c == kEscape) form.push_back(kEscape);
    form.push_back(c == '*' ? '%' : c == '?' ? '_' : c);
  }
  return form;
}

/// Digits and sets are the dialect's own. Behind a `*` the engine looks for the character U+0080 byte by
/// byte, and finds it within others.
bool knownToEngine(std::u32string_view pattern) {
  return pattern.find_first_of(std::u32string_view(U"#[\u0080")) == std::u32string_view::npos;
}

void compareWithEngine(std::string_view pattern, std::string_view text) {
  if (pattern.find('\0') != std::string_view::npos || text.find('\0') != std::string_view::npos) return;
  const std::u32string patternCharacters = characters(pattern);
  const std::u32string textCharacters = characters(text);
  if (!knownToEngine(patternCharacters)) return;
  const bool ours = store::MatchesPattern(pattern, text);
  const bool engines = sqlite3_strlike(engineForm(pattern).c_str(), std::string(text).c_str(), kEscape) == 0;
  check(ours || !engines);
  if (sameInAnyCase(patternCharacters) && sameInAnyCase(textCharacters)) check(ours == engines);
}

void momentComesBack(std::string_view text) {
  const auto moment = store::ReadDateTime(text);
  if (!moment) return;
  const auto again = store::ReadDateTime(store::ItalianForm(*moment));
  check(again && store::SortableForm(*again) == store::SortableForm(*moment));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
  const std::string_view all = textOf(data, count);
  const std::size_t cut = all.find('\n');
  const std::string_view pattern = all.substr(0, cut);
  const std::string_view text = cut == std::string_view::npos ? std::string_view() : all.substr(cut + 1);
  const std::string_view prefix = store::FixedPrefix(pattern);
  if (store::MatchesPattern(pattern, text))
    check(store::EqualCaseless(text.substr(0, prefix.size()), prefix));
  compareWithEngine(pattern, text);
  momentComesBack(text);
  return 0;
}
