#pragma once

#include "platform/store/dialect.h"
#include "platform/store/inserted_values.h"
#include "platform/store/lexer.h"

namespace store {

/// The translator's one pass over one statement.
class Translator {
 public:
  Translator(std::string_view source, const Dictionary& dictionary, Translation& outcome);
  void run();

 private:
  /// What the word behind has to be.
  enum class Wait : std::uint8_t { Any, Name };

  void start();
  void token(const Token& token);
  void word(const Token& token);
  void keyword(Keyword word, const Token& token);
  void name(std::string_view name);
  void function(const Token& token);
  void operatorSign(const Token& token);
  void number(std::string_view text);
  void date(const Token& token);
  void like(const Token& token);
  bool momentComparison();
  bool isWholeMomentValue();
  void end(const Token& token);
  void definitionToken(const Token& token);

  std::string_view content(const Token& text);
  std::string_view keep(std::string text);
  void textParameter(std::string_view text);
  void integerParameter(std::int64_t value);
  void remember(std::string_view literal);
  void write(std::string_view text);
  void mark(const Token& token);
  bool prefixOnIndex(std::string_view prefix) const;
  std::size_t position(const Token& token) const;

  std::string_view source_;
  const Dictionary& dictionary_;
  Translation& outcome_;
  Lexer lexer_;
  Wait wait_ = Wait::Any;
  /// Behind ORDER and GROUP a number is the position of a column and has to stay where it is.
  bool columnPositions_ = false;
  Keyword previous_ = Keyword::None;
  /// The column name just written, perhaps qualified: where it begins in the translation, and its last part.
  /// Empty when anything else stands in front.
  std::size_t nameStart_ = 0;
  std::string_view lastName_;
  bool afterPoint_ = false;
  InsertedValues values_;
  /// Some value has shaped the translation, or was not taken as it stands.
  bool unrepeatable_ = false;
};

}  // namespace store
