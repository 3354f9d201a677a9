#include "platform/store/modello_like.h"

#include <QChar>
#include <cstdint>

namespace store {

namespace {

constexpr char32_t kIgnoto = 0xFFFD;
constexpr unsigned char kUltimoAscii = 0x7E;

/// Takes one character off the front; a byte that begins no UTF-8 character counts as one by itself.
char32_t prendi(std::string_view& testo) {
  const auto byte = [&testo](std::size_t i) { return static_cast<unsigned char>(testo[i]); };
  const unsigned char primo = byte(0);
  std::size_t lunghezza = primo < 0x80 ? 1 : primo >= 0xF0 ? 4 : primo >= 0xE0 ? 3 : primo >= 0xC0 ? 2 : 0;
  if (lunghezza == 1) {
    testo.remove_prefix(1);
    return primo;
  }
  if (lunghezza == 0 || lunghezza > testo.size()) {
    testo.remove_prefix(1);
    return kIgnoto;
  }
  char32_t punto = primo & (0xFFU >> (lunghezza + 1));
  for (std::size_t i = 1; i < lunghezza; ++i) punto = (punto << 6U) | (byte(i) & 0x3FU);
  testo.remove_prefix(lunghezza);
  return punto;
}

char32_t ripiega(char32_t punto) {
  if (punto < 0x80) return punto >= 'A' && punto <= 'Z' ? punto + ('a' - 'A') : punto;
  return punto > QChar::LastValidCodePoint ? punto : QChar::toCaseFolded(punto);
}

/// Is `punto` in the set whose inside is `insieme`, as `a-z09` or `!a-z`?
bool nellInsieme(std::string_view insieme, char32_t punto) {
  const bool escluso = !insieme.empty() && insieme.front() == '!';
  if (escluso) insieme.remove_prefix(1);
  bool trovato = false;
  while (!insieme.empty()) {
    const char32_t primo = ripiega(prendi(insieme));
    char32_t ultimo = primo;
    if (insieme.size() > 1 && insieme.front() == '-') {
      insieme.remove_prefix(1);
      ultimo = ripiega(prendi(insieme));
    }
    trovato = trovato || (punto >= primo && punto <= ultimo);
  }
  return trovato != escluso;
}

/// Matches one element of the pattern, which is no `*`, against the front of the text and takes both off.
bool elemento(std::string_view& modello, std::string_view& testo) {
  const std::size_t chiusa = modello.front() == '[' ? modello.find(']') : std::string_view::npos;
  if (chiusa == 1) {  // "[]" stands for no character
    modello.remove_prefix(2);
    return true;
  }
  if (testo.empty()) return false;
  const char32_t punto = ripiega(prendi(testo));
  if (chiusa != std::string_view::npos) {
    const std::string_view insieme = modello.substr(1, chiusa - 1);
    modello.remove_prefix(chiusa + 1);
    return nellInsieme(insieme, punto);
  }
  const char32_t atteso = prendi(modello);
  if (atteso == '?') return true;
  if (atteso == '#') return punto >= '0' && punto <= '9';
  return ripiega(atteso) == punto;
}

}  // namespace

bool SomigliaAlModello(std::string_view modello, std::string_view testo) {
  std::string_view modelloDopoAsterisco;
  std::string_view testoDopoAsterisco;
  bool asterisco = false;
  while (!testo.empty() || !modello.empty()) {
    if (!modello.empty() && modello.front() == '*') {
      modello.remove_prefix(1);
      if (modello.empty()) return true;
      asterisco = true;
      modelloDopoAsterisco = modello;
      testoDopoAsterisco = testo;
      continue;
    }
    if (!modello.empty() && elemento(modello, testo)) continue;
    if (!asterisco || testoDopoAsterisco.empty()) return false;
    prendi(testoDopoAsterisco);
    modello = modelloDopoAsterisco;
    testo = testoDopoAsterisco;
  }
  return true;
}

bool ModelloValido(std::string_view modello) {
  for (std::size_t i = 0; i < modello.size(); ++i) {
    if (modello[i] != '[') continue;
    i = modello.find(']', i);
    if (i == std::string_view::npos) return false;
  }
  return true;
}

std::string_view PrefissoFisso(std::string_view modello) {
  std::size_t fine = 0;
  while (fine < modello.size()) {
    const auto byte = static_cast<unsigned char>(modello[fine]);
    if (byte == 0 || byte > kUltimoAscii) break;
    if (modello[fine] == '*' || modello[fine] == '?' || modello[fine] == '#' || modello[fine] == '[') break;
    ++fine;
  }
  return modello.substr(0, fine);
}

}  // namespace store
