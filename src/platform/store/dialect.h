#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/store/keywords.h"

namespace store {

/// What the translator has to know of a database: the columns on which a prefix LIKE may become a range, and
/// those of date and time, by name and by their place in a table.
class Dictionary {
 public:
  void add(std::string_view column);
  bool prefix(std::string_view column) const;
  void addMoment(std::string_view column);
  bool moment(std::string_view column) const;
  /// That the column at a place of a table, from 0, is one of date and time.
  void addMomentAt(std::string_view table, std::size_t place);
  bool momentAt(std::string_view table, std::size_t place) const;
  void clear();

 private:
  struct Order {
    using is_transparent = void;
    bool operator()(std::string_view first, std::string_view second) const;
  };
  std::set<std::string, Order> columns_;
  std::set<std::string, Order> moments_;
  std::map<std::string, std::set<std::size_t>, Order> momentPlaces_;
};

/// A literal lifted out of a statement.
struct Parameter {
  enum class Kind : std::uint8_t { Integer, Real, Text };
  Kind kind = Kind::Integer;
  std::int64_t integer = 0;
  double real = 0;
  /// Window on the source statement or on Translation::texts.
  std::string_view text;
};

/// A statement in the engine's SQL. The texts that callers build over and over with other values come out
/// with the same `sql`, so that it is also the key of the prepared statement.
struct Translation {
  std::string sql;
  std::vector<Parameter> parameters;
  /// Texts that stand nowhere in the source as they are needed. A deque: the parameters' windows must hold.
  std::deque<std::string> texts;
  /// A statement that defines tables: its literals stay in place, and the dictionary is read anew behind it.
  bool definition = false;

  /// Where a literal that went out as a whole stands in the source, quotes included.
  struct Literal {
    std::size_t parameter;
    std::size_t start;
    std::size_t length;
  };
  std::vector<Literal> literals;
  /// Whether a source with other literals in these places, each of its kind, comes out with the same `sql`.
  bool reusable = false;

  /// Where each token went, for messages; recorded only if `withMap` is set.
  struct Step {
    std::size_t inTranslated;
    std::size_t inSource;
  };
  bool withMap = false;
  std::vector<Step> map;
};

/// Translates one statement of the callers' dialect, UTF-8. The parameters look into `source`. Pure:
/// touches nothing but `outcome`, whose storage is reused. Throws Errore 3075 (syntax), 3085 (unknown
/// function), 3142 (text behind the end of the statement).
void Translate(std::string_view source, const Dictionary& dictionary, Translation& outcome);

}  // namespace store
