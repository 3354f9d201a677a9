#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace rtf {

/// One step of a rich text file.
struct Token {
  enum Kind {
    Opens,   ///< a group begins
    Closes,  ///< a group ends
    Word,    ///< \name with or without a number
    Symbol,  ///< a backslash and `byte`
    Byte,    ///< `byte` of the text
    End,
  };

  Kind kind = End;
  QByteArrayView name = {};
  int number = 0;
  bool withNumber = false;
  char byte = 0;
};

/// Parts the bytes into steps. Any bytes at all can be parted; line ends and control characters in the text
/// mean nothing. The steps' names lie in the bytes, which have to outlive them.
class Lexer {
 public:
  explicit Lexer(QByteArrayView byte) : byte_(byte) {}
  Token next();

 private:
  Token command();
  Token word();
  Token hexadecimal();
  bool digit(qsizetype place) const;
  int number();

  QByteArrayView byte_;
  qsizetype place_ = 0;
};

}  // namespace rtf
