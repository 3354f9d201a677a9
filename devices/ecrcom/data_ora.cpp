#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "platform/ecrcom/ecrcom.h"

// A moment of the till is one number in mixed radix, most significant first: year 0..99, month 0..12, day
// 0..31, hours 0..23, minutes 0..59, seconds 0..59. Fields of whole bits would take 33 of them.
namespace {

constexpr std::uint32_t kAnni = 100;
constexpr std::uint32_t kMesi = 13;
constexpr std::uint32_t kGiorni = 32;
constexpr std::uint32_t kOre = 24;
constexpr std::uint32_t kSessanta = 60;
constexpr std::uint64_t kMomenti = std::uint64_t{kAnni} * kMesi * kGiorni * kOre * kSessanta * kSessanta;
static_assert(kMomenti <= UINT32_MAX);

constexpr std::size_t kByteTesto = 18;
constexpr std::array<std::int32_t, 12> kGiorniDelMese{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::int32_t kFebbraio = 2;

bool fra(std::int32_t valore, std::int32_t minimo, std::int32_t massimo) {
  return valore >= minimo && valore <= massimo;
}

bool giornoDelMese(std::int32_t giorno, std::int32_t mese) {
  return fra(mese, 1, 12) && fra(giorno, 1, kGiorniDelMese[static_cast<std::size_t>(mese) - 1]);
}

/// The two-digit year stands for 2000 to 2099, where every fourth one is a leap year.
bool bisestile(std::int32_t anno) {
  return anno % 4 == 0;
}

std::uint32_t data(std::int32_t giorno, std::int32_t mese, std::int32_t anno) {
  const std::int32_t giorni =
      (anno * static_cast<std::int32_t>(kMesi) + mese) * static_cast<std::int32_t>(kGiorni);
  return static_cast<std::uint32_t>(giorni + giorno) * kOre * kSessanta * kSessanta;
}

/// Takes the least significant digit off.
unsigned stacca(std::uint32_t& valore, std::uint32_t base) {
  const unsigned cifra = valore % base;
  valore /= base;
  return cifra;
}

}  // namespace

uint32_t ecr_date_decode(int32_t day, int32_t month, int32_t year) {
  if (!giornoDelMese(day, month) || !fra(year, 0, 99)) return 0;
  if (month == kFebbraio && day == 29 && !bisestile(year)) return 0;
  return data(day, month, year);
}

uint32_t ecr_dates_decode(int32_t day, int32_t month) {
  return giornoDelMese(day, month) ? data(day, month, 0) : 0;
}

uint32_t ecr_time_decode(int32_t hours, int32_t minutes, int32_t seconds) {
  if (!fra(hours, 0, 23) || !fra(minutes, 0, 59) || !fra(seconds, 0, 59)) return 0;
  return static_cast<uint32_t>((hours * 60 + minutes) * 60 + seconds);
}

void ecr_oro_encode(uint32_t value, char* text) {
  if (text == nullptr) return;
  std::uint32_t resto = value < kMomenti ? value : 0;
  const unsigned secondi = stacca(resto, kSessanta);
  const unsigned minuti = stacca(resto, kSessanta);
  const unsigned ore = stacca(resto, kOre);
  const unsigned giorno = stacca(resto, kGiorni);
  const unsigned mese = stacca(resto, kMesi);
  const unsigned anno = resto % kAnni;
  std::snprintf(text, kByteTesto, "%02u/%02u/%02u %02u:%02u:%02u", giorno, mese, anno, ore, minuti, secondi);
}
