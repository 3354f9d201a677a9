#include "controls/rtf_lessico.h"

#include <algorithm>

namespace rtf {

namespace {

/// Numbers are kept within what any of them can mean.
constexpr int kMassimoNumero = 100'000'000;

bool lettera(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

int valoreEsadecimale(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool controllo(char c) {
  return static_cast<unsigned char>(c) < ' ' && c != '\t';
}

}  // namespace

Segno Lessico::prossimo() {
  while (posto_ < byte_.size() && controllo(byte_[posto_])) ++posto_;
  if (posto_ >= byte_.size()) return {};
  const char c = byte_[posto_++];
  if (c == '{') return {.tipo = Segno::Apre};
  if (c == '}') return {.tipo = Segno::Chiude};
  if (c == '\\') return comando();
  return {.tipo = Segno::Byte, .byte = c};
}

Segno Lessico::comando() {
  if (posto_ >= byte_.size()) return {};
  if (lettera(byte_[posto_])) return parola();
  const char c = byte_[posto_++];
  return c == '\'' ? esadecimale() : Segno{.tipo = Segno::Simbolo, .byte = c};
}

Segno Lessico::parola() {
  const qsizetype inizio = posto_;
  while (posto_ < byte_.size() && lettera(byte_[posto_])) ++posto_;
  Segno segno{.tipo = Segno::Parola, .nome = byte_.sliced(inizio, posto_ - inizio)};
  const bool meno = posto_ < byte_.size() && byte_[posto_] == '-' && cifra(posto_ + 1);
  if (meno) ++posto_;
  segno.conNumero = cifra(posto_);
  segno.numero = meno ? -numero() : numero();
  if (posto_ < byte_.size() && byte_[posto_] == ' ') ++posto_;
  // The only word behind which the file holds other than text.
  if (segno.nome == "bin") posto_ += std::min<qsizetype>(std::max(segno.numero, 0), byte_.size() - posto_);
  return segno;
}

bool Lessico::cifra(qsizetype posto) const {
  return posto < byte_.size() && byte_[posto] >= '0' && byte_[posto] <= '9';
}

int Lessico::numero() {
  int letto = 0;
  for (; cifra(posto_); ++posto_) letto = std::min(letto * 10 + (byte_[posto_] - '0'), kMassimoNumero);
  return letto;
}

Segno Lessico::esadecimale() {
  if (posto_ + 2 > byte_.size()) {
    posto_ = byte_.size();
    return {};
  }
  const int alto = valoreEsadecimale(byte_[posto_]);
  const int basso = valoreEsadecimale(byte_[posto_ + 1]);
  if (alto < 0 || basso < 0) return {.tipo = Segno::Byte, .byte = '?'};
  posto_ += 2;
  return {.tipo = Segno::Byte, .byte = static_cast<char>(alto * 16 + basso)};
}

}  // namespace rtf
