#include "platform/store/keywords.h"

#include <array>
#include <cstddef>

namespace store {

namespace {

struct Entry {
  Keyword word;
  std::string_view text;
};

constexpr std::array kEntries{
    Entry{Keyword::None, ""},
    Entry{Keyword::Alter, "ALTER"},
    Entry{Keyword::All, "ALL"},
    Entry{Keyword::And, "AND"},
    Entry{Keyword::As, "AS"},
    Entry{Keyword::Asc, "ASC"},
    Entry{Keyword::Between, "BETWEEN"},
    Entry{Keyword::By, "BY"},
    Entry{Keyword::Cascade, "CASCADE"},
    Entry{Keyword::Create, "CREATE"},
    Entry{Keyword::Delete, "DELETE"},
    Entry{Keyword::Desc, "DESC"},
    Entry{Keyword::Distinct, "DISTINCT"},
    Entry{Keyword::Drop, "DROP"},
    Entry{Keyword::Exists, "EXISTS"},
    Entry{Keyword::Explain, "EXPLAIN"},
    Entry{Keyword::False, "FALSE"},
    Entry{Keyword::From, "FROM"},
    Entry{Keyword::Group, "GROUP"},
    Entry{Keyword::Having, "HAVING"},
    Entry{Keyword::In, "IN"},
    Entry{Keyword::Inner, "INNER"},
    Entry{Keyword::Insert, "INSERT"},
    Entry{Keyword::Into, "INTO"},
    Entry{Keyword::Is, "IS"},
    Entry{Keyword::Join, "JOIN"},
    Entry{Keyword::Left, "LEFT"},
    Entry{Keyword::Like, "LIKE"},
    Entry{Keyword::Not, "NOT"},
    Entry{Keyword::Null, "NULL"},
    Entry{Keyword::On, "ON"},
    Entry{Keyword::Or, "OR"},
    Entry{Keyword::Order, "ORDER"},
    Entry{Keyword::Outer, "OUTER"},
    Entry{Keyword::Plan, "PLAN"},
    Entry{Keyword::Query, "QUERY"},
    Entry{Keyword::Right, "RIGHT"},
    Entry{Keyword::Select, "SELECT"},
    Entry{Keyword::Set, "SET"},
    Entry{Keyword::True, "TRUE"},
    Entry{Keyword::Union, "UNION"},
    Entry{Keyword::Update, "UPDATE"},
    Entry{Keyword::Values, "VALUES"},
    Entry{Keyword::Where, "WHERE"},
};

constexpr std::size_t kMaxLength = 8;
constexpr std::size_t kBoxes = 256;

/// Up to eight letters in one number, letter case folded away.
constexpr std::uint64_t pack(std::string_view text) {
  std::uint64_t key = 0;
  for (const char c : text) key = (key << 8U) | (static_cast<unsigned char>(c) | 0x20U);
  return key;
}

constexpr std::size_t box(std::uint64_t key) {
  return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ULL) >> 56U);
}

struct Table {
  std::array<std::uint64_t, kBoxes> keys{};
  std::array<Keyword, kBoxes> words{};
};

constexpr Table build() {
  Table table;
  for (std::size_t i = 1; i < kEntries.size(); ++i) {
    const std::uint64_t key = pack(kEntries[i].text);
    std::size_t where = box(key);
    while (table.keys[where] != 0) where = (where + 1) % kBoxes;
    table.keys[where] = key;
    table.words[where] = kEntries[i].word;
  }
  return table;
}

constexpr bool sorted() {
  for (std::size_t i = 0; i < kEntries.size(); ++i)
    if (static_cast<std::size_t>(kEntries[i].word) != i || kEntries[i].text.size() > kMaxLength) return false;
  return true;
}
static_assert(sorted(), "each word stands at its own number and fits its key");

constexpr Table kTable = build();

struct Function {
  std::string_view name;
  std::string_view translated;
};

constexpr std::array kFunctions{
    Function{"format", "formato"}, Function{"date", "oggi"},   Function{"max", "max"},
    Function{"min", "min"},        Function{"count", "count"}, Function{"sum", "sum"},
    Function{"avg", "avg"},        Function{"ucase", "upper"}, Function{"lcase", "lower"},
    Function{"len", "length"},     Function{"trim", "trim"},   Function{"abs", "abs"},
};

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace

Keyword RecogniseKeyword(std::string_view text) {
  if (text.size() > kMaxLength) return Keyword::None;
  const std::uint64_t key = pack(text);
  std::size_t where = box(key);
  while (kTable.keys[where] != 0) {
    if (kTable.keys[where] == key) return kTable.words[where];
    where = (where + 1) % kBoxes;
  }
  return Keyword::None;
}

std::string_view KeywordText(Keyword word) {
  return kEntries[static_cast<std::size_t>(word)].text;
}

std::string_view TranslatedFunction(std::string_view name) {
  for (const Function& function : kFunctions)
    if (EqualCaseless(function.name, name)) return function.translated;
  return {};
}

bool EqualCaseless(std::string_view first, std::string_view second) {
  if (first.size() != second.size()) return false;
  for (std::size_t i = 0; i < first.size(); ++i)
    if (lower(first[i]) != lower(second[i])) return false;
  return true;
}

}  // namespace store
