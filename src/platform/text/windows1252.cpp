#include "platform/text/windows1252.h"

#include <algorithm>
#include <array>

namespace windows1252 {

namespace {

constexpr unsigned char kIgnoto = '?';
constexpr unsigned char kPrimoAlto = 0x80;
constexpr unsigned char kUltimoAlto = 0x9F;

/// Characters of the bytes 0x80 to 0x9F; every other byte is the character of the same number.
constexpr std::array<char16_t, 32> kAlti{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                         0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
static_assert(kAlti.size() == kUltimoAlto - kPrimoAlto + 1);

}  // namespace

unsigned char byteDi(char32_t carattere) {
  if (carattere < kPrimoAlto || (carattere > kUltimoAlto && carattere <= 0xFF))
    return static_cast<unsigned char>(carattere);
  const auto* alto = std::find(kAlti.begin(), kAlti.end(), carattere);
  return alto == kAlti.end() ? kIgnoto : static_cast<unsigned char>(kPrimoAlto + (alto - kAlti.begin()));
}

char16_t carattereDi(unsigned char byte) {
  return byte < kPrimoAlto || byte > kUltimoAlto ? byte : kAlti[byte - kPrimoAlto];
}

QByteArray inByte(const QString& testo) {
  QByteArray byte;
  byte.reserve(testo.size());
  for (const QChar *c = testo.cbegin(), *fine = testo.cend(); c != fine; ++c) {
    const bool coppia = c->isHighSurrogate() && c + 1 != fine && c[1].isLowSurrogate();
    byte.append(static_cast<char>(coppia ? kIgnoto : byteDi(c->unicode())));
    if (coppia) ++c;
  }
  return byte;
}

QString inTesto(std::string_view byte) {
  QString testo(static_cast<qsizetype>(byte.size()), Qt::Uninitialized);
  std::transform(byte.begin(), byte.end(), testo.begin(),
                 [](char c) { return QChar(carattereDi(static_cast<unsigned char>(c))); });
  return testo;
}

}  // namespace windows1252
