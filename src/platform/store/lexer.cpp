#include "platform/store/lexer.h"

#include <array>

namespace store {

namespace {

constexpr std::size_t kMaxFragment = 80;

enum class CharClass : std::uint8_t { Other, White, Letter, Digit, OperatorSign };

constexpr std::array<CharClass, 256> buildClasses() {
  std::array<CharClass, 256> kinds{};
  for (const char c : std::string_view(" \t\r\n\f\v"))
    kinds[static_cast<unsigned char>(c)] = CharClass::White;
  for (unsigned c = 'a'; c <= 'z'; ++c) kinds[c] = kinds[c - 32U] = CharClass::Letter;
  kinds['_'] = CharClass::Letter;
  for (unsigned c = 0x80; c < 0x100; ++c) kinds[c] = CharClass::Letter;
  for (unsigned c = '0'; c <= '9'; ++c) kinds[c] = CharClass::Digit;
  for (const char c : std::string_view("(),.=<>+-*/&;"))
    kinds[static_cast<unsigned char>(c)] = CharClass::OperatorSign;
  return kinds;
}
constexpr std::array<CharClass, 256> kKinds = buildClasses();

CharClass charClass(char c) {
  return kKinds[static_cast<unsigned char>(c)];
}

}  // namespace

void Lexer::skipBlanks() {
  while (position_ < text_.size() && charClass(text_[position_]) == CharClass::White) ++position_;
}

char Lexer::peek() {
  skipBlanks();
  return position_ < text_.size() ? text_[position_] : '\0';
}

Token Lexer::cut(TokenKind kind, std::size_t start) const {
  const std::string_view whole = text_.substr(start, position_ - start);
  return {kind, whole, whole, false};
}

Token Lexer::next() {
  skipBlanks();
  if (position_ >= text_.size()) return {};
  const char c = text_[position_];
  switch (charClass(c)) {
    case CharClass::Letter:
      return word();
    case CharClass::Digit:
      return number();
    case CharClass::OperatorSign: {
      const bool decimal =
          c == '.' && position_ + 1 < text_.size() && charClass(text_[position_ + 1]) == CharClass::Digit;
      return decimal ? number() : operatorSign();
    }
    default:
      break;
  }
  if (c == '\'' || c == '"') return text(c);
  if (c == '#') return delimited(TokenKind::Date, '#');
  if (c == '[') return delimited(TokenKind::BracketedName, ']');
  throw SyntaxError(QStringLiteral("carattere non valido"), text_, position_);
}

Token Lexer::word() {
  const std::size_t start = position_;
  while (position_ < text_.size()) {
    const CharClass here = charClass(text_[position_]);
    if (here != CharClass::Letter && here != CharClass::Digit) break;
    ++position_;
  }
  return cut(TokenKind::Word, start);
}

Token Lexer::number() {
  const std::size_t start = position_;
  const auto digits = [this] {
    while (position_ < text_.size() && charClass(text_[position_]) == CharClass::Digit) ++position_;
  };
  digits();
  if (position_ < text_.size() && text_[position_] == '.') {
    ++position_;
    digits();
  }
  if (position_ < text_.size() && (text_[position_] == 'e' || text_[position_] == 'E')) {
    std::size_t after = position_ + 1;
    if (after < text_.size() && (text_[after] == '+' || text_[after] == '-')) ++after;
    if (after < text_.size() && charClass(text_[after]) == CharClass::Digit) {
      position_ = after;
      digits();
    }
  }
  if (position_ < text_.size() && charClass(text_[position_]) == CharClass::Letter)
    throw SyntaxError(QStringLiteral("operatore mancante"), text_, start);
  return cut(TokenKind::Number, start);
}

Token Lexer::text(char quote) {
  const std::size_t start = position_;
  bool doubled = false;
  std::size_t end = start + 1;
  for (;;) {
    end = text_.find(quote, end);
    if (end == std::string_view::npos)
      throw SyntaxError(QStringLiteral("testo senza l'apice di chiusura"), text_, start);
    if (end + 1 >= text_.size() || text_[end + 1] != quote) break;
    doubled = true;
    end += 2;
  }
  position_ = end + 1;
  Token token = cut(TokenKind::Text, start);
  token.inside = text_.substr(start + 1, end - start - 1);
  token.doubledQuote = doubled;
  return token;
}

Token Lexer::delimited(TokenKind kind, char closing) {
  const std::size_t start = position_;
  const std::size_t end = text_.find(closing, start + 1);
  if (end == std::string_view::npos)
    throw SyntaxError(QStringLiteral("manca la chiusura '%1'").arg(QLatin1Char(closing)), text_, start);
  position_ = end + 1;
  Token token = cut(kind, start);
  token.inside = text_.substr(start + 1, end - start - 1);
  return token;
}

Token Lexer::operatorSign() {
  const std::size_t start = position_++;
  const char first = text_[start];
  const char second = position_ < text_.size() ? text_[position_] : '\0';
  if ((first == '<' && (second == '>' || second == '=')) || (first == '>' && second == '=')) ++position_;
  return cut(TokenKind::OperatorSign, start);
}

QString Fragment(std::string_view text, std::size_t start) {
  const std::string_view rest = text.substr(start < text.size() ? start : text.size());
  QString fragment = QString::fromUtf8(rest.data(), static_cast<qsizetype>(rest.size())).trimmed();
  if (fragment.size() > static_cast<qsizetype>(kMaxFragment))
    fragment = fragment.left(kMaxFragment) + QStringLiteral("...");
  return fragment;
}

Errore SyntaxError(const QString& reason, std::string_view text, std::size_t start) {
  return {errors::kSyntax, QStringLiteral("Errore di sintassi (%1) nell'espressione della query '%2'.")
                               .arg(reason, Fragment(text, start))};
}

}  // namespace store
