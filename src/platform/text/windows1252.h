#pragma once

#include <QByteArray>
#include <QString>
#include <string_view>

/// The system's single-byte code page. The five undefined codes map to the control characters of the same
/// number, so that every byte survives the way to text and back.
namespace windows1252 {

/// A character that the code page lacks becomes "?".
QByteArray inByte(const QString& testo);
QString inTesto(std::string_view byte);
inline QString inTesto(const QByteArray& byte) { return inTesto(std::string_view(byte.constData(), static_cast<std::size_t>(byte.size()))); }
/// The byte of one character, "?" where there is none.
unsigned char byteDi(char32_t carattere);
/// The character of one byte.
char16_t carattereDi(unsigned char byte);

}  // namespace windows1252
