#include "controls/rtf_lexer.h"

#include <algorithm>

namespace rtf {

namespace {

/// Numbers are kept within what any of them can mean.
constexpr int kMaxNumber = 100'000'000;

bool letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool isControl(char c) {
  return static_cast<unsigned char>(c) < ' ' && c != '\t';
}

}  // namespace

Token Lexer::next() {
  while (place_ < byte_.size() && isControl(byte_[place_])) ++place_;
  if (place_ >= byte_.size()) return {};
  const char c = byte_[place_++];
  if (c == '{') return {.kind = Token::Opens};
  if (c == '}') return {.kind = Token::Closes};
  if (c == '\\') return command();
  return {.kind = Token::Byte, .byte = c};
}

Token Lexer::command() {
  if (place_ >= byte_.size()) return {};
  if (letter(byte_[place_])) return word();
  const char c = byte_[place_++];
  return c == '\'' ? hexadecimal() : Token{.kind = Token::Symbol, .byte = c};
}

Token Lexer::word() {
  const qsizetype start = place_;
  while (place_ < byte_.size() && letter(byte_[place_])) ++place_;
  Token token{.kind = Token::Word, .name = byte_.sliced(start, place_ - start)};
  const bool minus = place_ < byte_.size() && byte_[place_] == '-' && digit(place_ + 1);
  if (minus) ++place_;
  token.withNumber = digit(place_);
  token.number = minus ? -number() : number();
  if (place_ < byte_.size() && byte_[place_] == ' ') ++place_;
  // The only word behind which the file holds other than text.
  if (token.name == "bin") place_ += std::min<qsizetype>(std::max(token.number, 0), byte_.size() - place_);
  return token;
}

bool Lexer::digit(qsizetype place) const {
  return place < byte_.size() && byte_[place] >= '0' && byte_[place] <= '9';
}

int Lexer::number() {
  int read = 0;
  for (; digit(place_); ++place_) read = std::min(read * 10 + (byte_[place_] - '0'), kMaxNumber);
  return read;
}

Token Lexer::hexadecimal() {
  if (place_ + 2 > byte_.size()) {
    place_ = byte_.size();
    return {};
  }
  const int high = hexValue(byte_[place_]);
  const int low = hexValue(byte_[place_ + 1]);
  if (high < 0 || low < 0) return {.kind = Token::Byte, .byte = '?'};
  place_ += 2;
  return {.kind = Token::Byte, .byte = static_cast<char>(high * 16 + low)};
}

}  // namespace rtf
