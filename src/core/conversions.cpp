#include "core/conversions.h"

#include <QLocale>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <string>

#include "platform/error.h"
#include "platform/text/windows1252.h"

namespace {

constexpr int kDecimaliImporto = 2;
/// Room for ten digits, sign and decimal sign.
constexpr std::size_t kPostiImporto = 12;

/// Sign, digits, points and exponent at the text's beginning, blanks left out: what a number may be made of.
std::string partiDiNumero(const QString& testo) {
  std::string parti;
  for (const QChar carattere : testo) {
    const char c = carattere.toLatin1();
    if (c == ' ' || c == '\t' || c == '\n') continue;
    const bool esponente = c == 'e' || c == 'E' || c == 'd' || c == 'D';
    if (!esponente && !(c >= '0' && c <= '9') && c != '.' && c != '+' && c != '-') break;
    parti += esponente ? 'e' : c;
  }
  return parti;
}

/// The value of a few plain digits, nothing for any other text: files are full of them, and the locale takes
/// its time.
std::optional<std::int16_t> pocheCifre(const QString& testo) {
  constexpr qsizetype kSicure = 4;
  if (testo.isEmpty() || testo.size() > kSicure) return std::nullopt;
  int valore = 0;
  for (const QChar carattere : testo) {
    if (carattere < u'0' || carattere > u'9') return std::nullopt;
    valore = valore * 10 + (carattere.unicode() - u'0');
  }
  return static_cast<std::int16_t>(valore);
}

std::uint32_t littleEndian(std::span<const std::uint8_t> byte, std::size_t massimo) {
  std::uint32_t valore = 0;
  for (std::size_t i = 0; i < std::min(byte.size(), massimo); ++i)
    valore |= static_cast<std::uint32_t>(byte[i]) << (8 * i);
  return valore;
}

}  // namespace

void TestoInByte(const QString& testo, std::span<std::uint8_t> byte) {
  const QByteArray codici = windows1252::toBytes(testo);
  if (static_cast<std::size_t>(codici.size()) > byte.size()) throw errors::outOfRange();
  std::ranges::copy(codici, byte.begin());
}

QString ByteInTesto(std::span<const std::uint8_t> byte) {
  const auto testo = byte.first(static_cast<std::size_t>(std::ranges::find(byte, 0) - byte.begin()));
  return windows1252::toText(std::string_view(reinterpret_cast<const char*>(testo.data()), testo.size()));
}

// A list asks for it at each of its amounts, and a locale makes a text of it each time.
QChar SegnoDecimale() {
  static QLocale locale = QLocale::c();
  static QChar segno = u'.';
  if (const QLocale adesso; adesso != locale) {
    locale = adesso;
    segno = locale.decimalPoint().front();
  }
  return segno;
}

// Digit by digit: a list shows thousands of them.
QString CentInTesto(std::int32_t valore) {
  std::array<char16_t, kPostiImporto> posti{};
  std::size_t primo = posti.size();
  std::int64_t resto = std::abs(static_cast<std::int64_t>(valore));
  const auto cifra = [&] {
    posti[--primo] = static_cast<char16_t>(u'0' + resto % 10);
    resto /= 10;
  };
  for (int i = 0; i < kDecimaliImporto; ++i) cifra();
  posti[--primo] = SegnoDecimale().unicode();
  do cifra();
  while (resto != 0);
  if (valore < 0) posti[--primo] = u'-';
  return QStringView(posti.data() + primo, static_cast<qsizetype>(posti.size() - primo)).toString();
}

double TestoInValore(QString& testo) {
  const qsizetype virgola = testo.indexOf(QLatin1Char(','));
  if (virgola >= 0) testo[virgola] = QLatin1Char('.');
  return Val(testo);
}

std::int32_t InteroArrotondato(double valore) {
  const double intero = std::nearbyint(valore);
  if (!(intero >= std::numeric_limits<std::int32_t>::min() &&
        intero <= std::numeric_limits<std::int32_t>::max()))
    throw errors::overflow();
  return static_cast<std::int32_t>(intero);
}

std::int32_t TestoInCent(const QString& testo) {
  QString copia = testo;
  return InteroArrotondato(TestoInValore(copia) * kCentesimi);
}

double Val(const QString& testo) {
  const std::string parti = partiDiNumero(testo);
  const bool segno = !parti.empty() && (parti.front() == '+' || parti.front() == '-');
  const char* inizio = parti.data() + (segno ? 1 : 0);
  const char* fine = parti.data() + parti.size();
  if (inizio == fine || *inizio == '+' || *inizio == '-') return 0;
  double valore = 0;
  const auto [dopo, esito] = std::from_chars(inizio, fine, valore);
  if (esito == std::errc::invalid_argument) return 0;
  if (esito == std::errc::result_out_of_range) {
    if (std::string_view(inizio, dopo).find("e-") != std::string_view::npos) return 0;
    throw errors::overflow();
  }
  return parti.front() == '-' ? -valore : valore;
}

std::int16_t TestoInIntero16(const QString& testo) {
  if (const auto cifre = pocheCifre(testo)) return *cifre;
  bool numero = false;
  const double valore = QLocale().toDouble(testo.trimmed(), &numero);
  if (!numero || !std::isfinite(valore)) throw errors::typeMismatch();
  const double intero = std::nearbyint(valore);
  if (intero < std::numeric_limits<std::int16_t>::min() || intero > std::numeric_limits<std::int16_t>::max())
    throw errors::overflow();
  return static_cast<std::int16_t>(intero);
}

void BloccoInByte(const void* source, std::size_t size, std::vector<std::uint8_t>& array, std::size_t lower) {
  if (lower >= size) throw errors::outOfRange();
  array.resize(size - lower);
  std::memcpy(array.data(), source, array.size());
}

std::int16_t DueByteInIntero(std::span<const std::uint8_t> byte) {
  return static_cast<std::int16_t>(littleEndian(byte, sizeof(std::int16_t)));
}

std::int32_t QuattroByteInIntero(std::span<const std::uint8_t> byte) {
  return static_cast<std::int32_t>(littleEndian(byte, sizeof(std::int32_t)));
}
