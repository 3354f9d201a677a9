#include "platform/text/windows1252.h"

#include <algorithm>
#include <array>

namespace windows1252 {

namespace {

constexpr unsigned char kUnknown = '?';
constexpr unsigned char kFirstHigh = 0x80;
constexpr unsigned char kLastHigh = 0x9F;

/// Characters of the bytes 0x80 to 0x9F; every other byte is the character of the same number.
constexpr std::array<char16_t, 32> kHigh{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                         0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
static_assert(kHigh.size() == kLastHigh - kFirstHigh + 1);

}  // namespace

unsigned char byteOf(char32_t character) {
  if (character < kFirstHigh || (character > kLastHigh && character <= 0xFF))
    return static_cast<unsigned char>(character);
  const auto* high = std::find(kHigh.begin(), kHigh.end(), character);
  return high == kHigh.end() ? kUnknown : static_cast<unsigned char>(kFirstHigh + (high - kHigh.begin()));
}

char16_t characterOf(unsigned char byte) {
  return byte < kFirstHigh || byte > kLastHigh ? byte : kHigh[byte - kFirstHigh];
}

QByteArray toBytes(const QString& text) {
  QByteArray byte;
  byte.reserve(text.size());
  for (const QChar *c = text.cbegin(), *end = text.cend(); c != end; ++c) {
    const bool pair = c->isHighSurrogate() && c + 1 != end && c[1].isLowSurrogate();
    byte.append(static_cast<char>(pair ? kUnknown : byteOf(c->unicode())));
    if (pair) ++c;
  }
  return byte;
}

QString toText(std::string_view byte) {
  QString text(static_cast<qsizetype>(byte.size()), Qt::Uninitialized);
  std::transform(byte.begin(), byte.end(), text.begin(),
                 [](char c) { return QChar(characterOf(static_cast<unsigned char>(c))); });
  return text;
}

QString toUpper(QString text) {
  const auto lacks = [](QChar c) { return c.unicode() != kUnknown && byteOf(c.unicode()) == kUnknown; };
  for (QChar& c : text) {
    const QChar upper = c.toUpper();
    if (!lacks(upper) || lacks(c)) c = upper;
  }
  return text;
}

}  // namespace windows1252
