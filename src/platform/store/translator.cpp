#include "platform/store/translator.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/store/date_time.h"
#include "platform/store/functions.h"
#include "platform/store/like_pattern.h"

namespace store {

Translator::Translator(std::string_view source, const Dictionary& dictionary, Translation& outcome)
    : source_(source), dictionary_(dictionary), outcome_(outcome), lexer_(source) {
  outcome_.sql.clear();
  outcome_.parameters.clear();
  outcome_.texts.clear();
  outcome_.map.clear();
  outcome_.literals.clear();
  outcome_.definition = false;
  outcome_.reusable = false;
}

std::size_t Translator::position(const Token& token) const {
  return token.kind == TokenKind::End ? source_.size()
                                      : static_cast<std::size_t>(token.whole.data() - source_.data());
}

// Every token is followed by a blank, so that two of them never grow together into a comment of the engine's.
void Translator::write(std::string_view text) {
  outcome_.sql.append(text);
  outcome_.sql.push_back(' ');
}

void Translator::mark(const Token& token) {
  if (outcome_.withMap) outcome_.map.push_back({outcome_.sql.size(), position(token)});
}

std::string_view Translator::keep(std::string text) {
  return outcome_.texts.emplace_back(std::move(text));
}

void Translator::textParameter(std::string_view text) {
  outcome_.parameters.push_back({Parameter::Kind::Text, 0, 0, text});
}

void Translator::integerParameter(std::int64_t value) {
  outcome_.parameters.push_back({Parameter::Kind::Integer, value, 0, {}});
  write("?");
}

/// The parameter that comes next stands in the source as this token.
void Translator::remember(std::string_view literal) {
  outcome_.literals.push_back({outcome_.parameters.size(),
                               static_cast<std::size_t>(literal.data() - source_.data()), literal.size()});
}

std::string_view Translator::content(const Token& text) {
  if (!text.doubledQuote) return text.inside;
  unrepeatable_ = true;
  std::string plain;
  for (std::size_t i = 0; i < text.inside.size(); ++i) {
    plain.push_back(text.inside[i]);
    if (text.inside[i] == text.whole.front()) ++i;
  }
  return keep(std::move(plain));
}

void Translator::run() {
  start();
  for (Token p = lexer_.next(); p.kind != TokenKind::End; p = lexer_.next()) {
    mark(p);
    if (outcome_.definition && p.whole != ";")
      definitionToken(p);
    else
      token(p);
  }
  outcome_.reusable = !unrepeatable_ && !outcome_.definition;
}

void Translator::start() {
  const Token first = lexer_.next();
  mark(first);
  const Keyword verb = first.kind == TokenKind::Word ? RecogniseKeyword(first.whole) : Keyword::None;
  switch (verb) {
    case Keyword::Alter:
    case Keyword::Create:
    case Keyword::Drop:
      outcome_.definition = true;
      [[fallthrough]];
    case Keyword::Delete:
    case Keyword::Explain:
    case Keyword::Insert:
    case Keyword::Select:
    case Keyword::Update:
      keyword(verb, first);
      return;
    default:
      break;
  }
  throw SyntaxError(QStringLiteral("attesa una istruzione DELETE, INSERT, SELECT o UPDATE"), source_,
                    position(first));
}

void Translator::token(const Token& token) {
  if (token.kind == TokenKind::Word) return word(token);
  if (token.kind == TokenKind::BracketedName) return name(token.inside);
  previous_ = Keyword::None;
  wait_ = Wait::Any;
  afterPoint_ = false;
  if (token.kind == TokenKind::OperatorSign) return operatorSign(token);
  lastName_ = {};
  if (token.kind == TokenKind::Number) return number(token.whole);
  if (token.kind == TokenKind::Date) return date(token);
  remember(token.whole);
  textParameter(content(token));
  if (isWholeMomentValue()) {
    // In its form at once: the guard of the column would write the row a second time.
    write(kDateFunction);
    return write("( ? )");
  }
  write("?");
}

void Translator::word(const Token& token) {
  values_.word();
  const bool nameOnly = afterPoint_ || wait_ == Wait::Name;
  const Keyword key = afterPoint_ ? Keyword::None : RecogniseKeyword(token.whole);
  if (key != Keyword::None) return keyword(key, token);
  if (!nameOnly && lexer_.peek() == '(') return function(token);
  name(token.whole);
}

void Translator::keyword(Keyword word, const Token& token) {
  const Keyword before = std::exchange(previous_, word);
  wait_ = Wait::Any;
  switch (word) {
    case Keyword::Cascade:
      if (before == Keyword::Delete) return;  // the relations of the file say what goes with a row
      break;
    case Keyword::Like:
      return like(token);
    case Keyword::True:
      lastName_ = {};
      return integerParameter(1);
    case Keyword::False:
      lastName_ = {};
      return integerParameter(0);
    case Keyword::As:
    case Keyword::From:
    case Keyword::Into:
    case Keyword::Join:
    case Keyword::Update:
      wait_ = Wait::Name;
      break;
    case Keyword::Values:
      values_.begin();
      break;
    case Keyword::Group:
    case Keyword::Order:
      columnPositions_ = true;
      break;
    case Keyword::Having:
    case Keyword::Select:
      columnPositions_ = false;
      break;
    default:
      break;
  }
  lastName_ = {};
  write(KeywordText(word));
}

void Translator::name(std::string_view name) {
  if (previous_ == Keyword::Into) values_.into(name);
  if (!std::exchange(afterPoint_, false)) nameStart_ = outcome_.sql.size();
  lastName_ = name;
  previous_ = Keyword::None;
  wait_ = Wait::Any;
  outcome_.sql.push_back('[');
  outcome_.sql.append(name);
  outcome_.sql.append("] ");
}

void Translator::function(const Token& token) {
  const std::string_view translated = TranslatedFunction(token.whole);
  if (translated.empty())
    throw Errore{errors::kUnknownFunction,
                 QStringLiteral("Funzione '%1' non definita nell'espressione.")
                     .arg(QString::fromUtf8(token.whole.data(), static_cast<qsizetype>(token.whole.size())))};
  if (translated == kFormatFunction && momentComparison()) return;
  lastName_ = {};
  previous_ = Keyword::None;
  write(translated);
}

void Translator::operatorSign(const Token& token) {
  const char symbol = token.whole.front();
  values_.sign(symbol);
  if (symbol == ';') return end(token);
  if (symbol == '.' && !lastName_.empty()) {
    afterPoint_ = true;
    return write(".");
  }
  lastName_ = {};
  if (symbol == '*' && outcome_.sql == "DELETE ") return;
  write(symbol == '&' ? "||" : token.whole);
}

void Translator::end(const Token& token) {
  if (lexer_.peek() == '\0' && lexer_.position() >= source_.size()) return;
  const std::size_t after = position(token) + 1;
  throw Errore{errors::kTextPastEnd,
               QStringLiteral("Caratteri trovati dopo la fine dell'istruzione SQL: '%1'.")
                   .arg(Fragment(source_, after))};
}

void Translator::number(std::string_view text) {
  if (columnPositions_) return write(text);
  const char* const last = text.data() + text.size();
  std::int64_t integer = 0;
  const auto [after, outcome] = std::from_chars(text.data(), last, integer);
  if (outcome == std::errc() && after == last) {
    remember(text);
    return integerParameter(integer);
  }
  unrepeatable_ = true;
  double real = 0;
  if (std::from_chars(text.data(), last, real).ec != std::errc())
    throw SyntaxError(QStringLiteral("numero troppo grande"), source_,
                      static_cast<std::size_t>(text.data() - source_.data()));
  outcome_.parameters.push_back({Parameter::Kind::Real, 0, real, {}});
  write("?");
}

void Translator::date(const Token& token) {
  unrepeatable_ = true;
  const auto moment = ReadDateTime(token.inside);
  if (!moment) throw SyntaxError(QStringLiteral("data non valida"), source_, position(token));
  textParameter(keep(SortableForm(*moment)));
  write("?");
}

void Translator::definitionToken(const Token& token) {
  if (token.kind != TokenKind::Text) return write(token.whole);
  std::string literal(1, '\'');
  for (const char c : content(token)) literal.append(c == '\'' ? 2 : 1, c);
  literal.push_back('\'');
  write(literal);
}

void Dictionary::add(std::string_view column) {
  columns_.emplace(column);
}

bool Dictionary::prefix(std::string_view column) const {
  return columns_.find(column) != columns_.end();
}

void Dictionary::addMoment(std::string_view column) {
  moments_.emplace(column);
}

bool Dictionary::moment(std::string_view column) const {
  return moments_.find(column) != moments_.end();
}

void Dictionary::addMomentAt(std::string_view table, std::size_t place) {
  momentPlaces_[std::string(table)].insert(place);
}

bool Dictionary::momentAt(std::string_view table, std::size_t place) const {
  const auto found = momentPlaces_.find(table);
  return found != momentPlaces_.end() && found->second.contains(place);
}

void Dictionary::clear() {
  columns_.clear();
  moments_.clear();
  momentPlaces_.clear();
}

bool Dictionary::Order::operator()(std::string_view first, std::string_view second) const {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
  return std::lexicographical_compare(first.begin(), first.end(), second.begin(), second.end(),
                                      [&](char a, char b) { return lower(a) < lower(b); });
}

// The engine's own functions stop at a zero byte: a text with one would pass for shorter than its column.
void Translate(std::string_view source, const Dictionary& dictionary, Translation& outcome) {
  const std::size_t zero = source.find('\0');
  if (zero != std::string_view::npos)
    throw SyntaxError(QStringLiteral("carattere non valido"), source.substr(0, zero), 0);
  Translator(source, dictionary, outcome).run();
}

}  // namespace store
