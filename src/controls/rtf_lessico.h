#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace rtf {

/// One step of a rich text file.
struct Segno {
  enum Tipo {
    Apre,     ///< a group begins
    Chiude,   ///< a group ends
    Parola,   ///< \name with or without a number
    Simbolo,  ///< a backslash and `byte`
    Byte,     ///< `byte` of the text
    Fine,
  };

  Tipo tipo = Fine;
  QByteArrayView nome = {};
  int numero = 0;
  bool conNumero = false;
  char byte = 0;
};

/// Parts the bytes into steps. Any bytes at all can be parted; line ends and control characters in the text
/// mean nothing. The steps' names lie in the bytes, which have to outlive them.
class Lessico {
 public:
  explicit Lessico(QByteArrayView byte) : byte_(byte) {}
  Segno prossimo();

 private:
  Segno comando();
  Segno parola();
  Segno esadecimale();
  bool cifra(qsizetype posto) const;
  int numero();

  QByteArrayView byte_;
  qsizetype posto_ = 0;
};

}  // namespace rtf
