#pragma once

#include <QByteArray>
#include <QString>
#include <string_view>

/// The system's single-byte code page. The five undefined codes map to the control characters of the same
/// number, so that every byte survives the way to text and back.
namespace windows1252 {

/// A character that the code page lacks becomes "?".
QByteArray toBytes(const QString& text);
QString toText(std::string_view byte);
inline QString toText(const QByteArray& byte) {
  return toText(std::string_view(byte.constData(), static_cast<std::size_t>(byte.size())));
}
/// The byte of one character, "?" where there is none.
unsigned char byteOf(char32_t character);
/// The character of one byte.
char16_t characterOf(unsigned char byte);
/// The text in upper case, as long as it was. A letter whose upper case the code page lacks ("µ") stays,
/// since a till would show a "?" in its place.
QString toUpper(QString text);

}  // namespace windows1252
