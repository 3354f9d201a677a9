#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/store/dialect.h"

namespace store {

/// A statement already translated, and where its literals stand: the next one of the same wording, built by a
/// loop with other values, is read by comparing what is fixed and taking the literals from their places.
class StatementShape {
 public:
  /// True if `source` differs from the remembered one in its literals alone; its values are then in
  /// `translation`, and look into `source`.
  bool fillIn(std::string_view source);
  /// Translates word by word and remembers. Throws as Translate does, and then remembers nothing.
  void rebuild(std::string_view source, const Dictionary& dictionary);

  const Translation& translation() const { return translation_; }

 private:
  bool fillLiteral(std::string_view source, std::size_t& here, const Translation::Literal& literal);

  std::string pattern_;
  Translation translation_;
};

/// The few wordings that a loop alternates between.
class StatementShapes {
 public:
  /// The translation of `source`; valid, like the windows in it, until the next call.
  const Translation& translate(std::string_view source, const Dictionary& dictionary);

 private:
  std::array<StatementShape, 4> shapes_;
  std::size_t next_ = 0;
};

}  // namespace store
