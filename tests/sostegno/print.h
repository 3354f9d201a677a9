#pragma once

#include <QString>
#include <ostream>

/// Texts in the messages of the tests, and in the names of parameters, as a person reads them.
inline void PrintTo(const QString& text, std::ostream* output) {
  *output << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QByteArray& bytes, std::ostream* output) {
  constexpr qsizetype kMost = 200;
  *output << bytes.size() << " bytes " << bytes.left(kMost).toPercentEncoding(" .,;:-_/()[]").toStdString();
}
