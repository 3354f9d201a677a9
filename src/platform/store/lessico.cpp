#include "platform/store/lessico.h"

#include <array>

namespace store {

namespace {

constexpr std::size_t kFrammentoMassimo = 80;

enum class Classe : std::uint8_t { Altro, Bianco, Lettera, Cifra, Operatore };

constexpr std::array<Classe, 256> costruisciClassi() {
  std::array<Classe, 256> classi{};
  for (const char c : std::string_view(" \t\r\n\f\v")) classi[static_cast<unsigned char>(c)] = Classe::Bianco;
  for (unsigned c = 'a'; c <= 'z'; ++c) classi[c] = classi[c - 32U] = Classe::Lettera;
  classi['_'] = Classe::Lettera;
  for (unsigned c = 0x80; c < 0x100; ++c) classi[c] = Classe::Lettera;
  for (unsigned c = '0'; c <= '9'; ++c) classi[c] = Classe::Cifra;
  for (const char c : std::string_view("(),.=<>+-*/&;"))
    classi[static_cast<unsigned char>(c)] = Classe::Operatore;
  return classi;
}
constexpr std::array<Classe, 256> kClassi = costruisciClassi();

Classe classe(char c) {
  return kClassi[static_cast<unsigned char>(c)];
}

}  // namespace

void Lessico::saltaBianchi() {
  while (posizione_ < testo_.size() && classe(testo_[posizione_]) == Classe::Bianco) ++posizione_;
}

char Lessico::sbircia() {
  saltaBianchi();
  return posizione_ < testo_.size() ? testo_[posizione_] : '\0';
}

Pezzo Lessico::ritaglia(Simbolo simbolo, std::size_t inizio) const {
  const std::string_view intero = testo_.substr(inizio, posizione_ - inizio);
  return {simbolo, intero, intero, false};
}

Pezzo Lessico::prossimo() {
  saltaBianchi();
  if (posizione_ >= testo_.size()) return {};
  const char c = testo_[posizione_];
  switch (classe(c)) {
    case Classe::Lettera:
      return parola();
    case Classe::Cifra:
      return numero();
    case Classe::Operatore: {
      const bool decimale =
          c == '.' && posizione_ + 1 < testo_.size() && classe(testo_[posizione_ + 1]) == Classe::Cifra;
      return decimale ? numero() : operatore();
    }
    default:
      break;
  }
  if (c == '\'' || c == '"') return testo(c);
  if (c == '#') return delimitato(Simbolo::Data, '#');
  if (c == '[') return delimitato(Simbolo::NomeTraParentesi, ']');
  throw ErroreDiSintassi(QStringLiteral("carattere non valido"), testo_, posizione_);
}

Pezzo Lessico::parola() {
  const std::size_t inizio = posizione_;
  while (posizione_ < testo_.size()) {
    const Classe qui = classe(testo_[posizione_]);
    if (qui != Classe::Lettera && qui != Classe::Cifra) break;
    ++posizione_;
  }
  return ritaglia(Simbolo::Parola, inizio);
}

Pezzo Lessico::numero() {
  const std::size_t inizio = posizione_;
  const auto cifre = [this] {
    while (posizione_ < testo_.size() && classe(testo_[posizione_]) == Classe::Cifra) ++posizione_;
  };
  cifre();
  if (posizione_ < testo_.size() && testo_[posizione_] == '.') {
    ++posizione_;
    cifre();
  }
  if (posizione_ < testo_.size() && (testo_[posizione_] == 'e' || testo_[posizione_] == 'E')) {
    std::size_t dopo = posizione_ + 1;
    if (dopo < testo_.size() && (testo_[dopo] == '+' || testo_[dopo] == '-')) ++dopo;
    if (dopo < testo_.size() && classe(testo_[dopo]) == Classe::Cifra) {
      posizione_ = dopo;
      cifre();
    }
  }
  if (posizione_ < testo_.size() && classe(testo_[posizione_]) == Classe::Lettera)
    throw ErroreDiSintassi(QStringLiteral("operatore mancante"), testo_, inizio);
  return ritaglia(Simbolo::Numero, inizio);
}

Pezzo Lessico::testo(char apice) {
  const std::size_t inizio = posizione_;
  bool doppio = false;
  std::size_t fine = inizio + 1;
  for (;;) {
    fine = testo_.find(apice, fine);
    if (fine == std::string_view::npos)
      throw ErroreDiSintassi(QStringLiteral("testo senza l'apice di chiusura"), testo_, inizio);
    if (fine + 1 >= testo_.size() || testo_[fine + 1] != apice) break;
    doppio = true;
    fine += 2;
  }
  posizione_ = fine + 1;
  Pezzo pezzo = ritaglia(Simbolo::Testo, inizio);
  pezzo.dentro = testo_.substr(inizio + 1, fine - inizio - 1);
  pezzo.doppioApice = doppio;
  return pezzo;
}

Pezzo Lessico::delimitato(Simbolo simbolo, char chiusura) {
  const std::size_t inizio = posizione_;
  const std::size_t fine = testo_.find(chiusura, inizio + 1);
  if (fine == std::string_view::npos)
    throw ErroreDiSintassi(QStringLiteral("manca la chiusura '%1'").arg(QLatin1Char(chiusura)), testo_,
                           inizio);
  posizione_ = fine + 1;
  Pezzo pezzo = ritaglia(simbolo, inizio);
  pezzo.dentro = testo_.substr(inizio + 1, fine - inizio - 1);
  return pezzo;
}

Pezzo Lessico::operatore() {
  const std::size_t inizio = posizione_++;
  const char primo = testo_[inizio];
  const char secondo = posizione_ < testo_.size() ? testo_[posizione_] : '\0';
  if ((primo == '<' && (secondo == '>' || secondo == '=')) || (primo == '>' && secondo == '=')) ++posizione_;
  return ritaglia(Simbolo::Operatore, inizio);
}

QString Frammento(std::string_view testo, std::size_t inizio) {
  const std::string_view resto = testo.substr(inizio < testo.size() ? inizio : testo.size());
  QString frammento = QString::fromUtf8(resto.data(), static_cast<qsizetype>(resto.size())).trimmed();
  if (frammento.size() > static_cast<qsizetype>(kFrammentoMassimo))
    frammento = frammento.left(kFrammentoMassimo) + QStringLiteral("...");
  return frammento;
}

Errore ErroreDiSintassi(const QString& motivo, std::string_view testo, std::size_t inizio) {
  return {errore::kSintassi, QStringLiteral("Errore di sintassi (%1) nell'espressione della query '%2'.")
                                 .arg(motivo, Frammento(testo, inizio))};
}

}  // namespace store
