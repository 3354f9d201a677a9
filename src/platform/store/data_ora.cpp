#include "platform/store/data_ora.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

namespace store {

namespace {

constexpr int kSecolo = 2000;
constexpr char kSeparatoreOra = '.';

bool cifra(char c) {
  return c >= '0' && c <= '9';
}

/// Reads whole numbers off the front of a text.
class Cursore {
 public:
  explicit Cursore(std::string_view testo) : resto_(testo) {}

  std::optional<int> numero(std::size_t massimo) {
    std::size_t cifre = 0;
    while (cifre < resto_.size() && cifre < massimo && cifra(resto_[cifre])) ++cifre;
    if (cifre == 0) return std::nullopt;
    int valore = 0;
    std::from_chars(resto_.data(), resto_.data() + cifre, valore);
    resto_.remove_prefix(cifre);
    letto_ = cifre;
    return valore;
  }
  bool salta(std::string_view ammessi) {
    if (resto_.empty() || ammessi.find(resto_.front()) == std::string_view::npos) return false;
    resto_.remove_prefix(1);
    return true;
  }
  void saltaBianchi() {
    while (salta(" ")) {
    }
  }
  bool finito() const { return resto_.empty(); }
  std::size_t letto() const { return letto_; }

 private:
  std::string_view resto_;
  std::size_t letto_ = 0;
};

bool bisestile(int anno) {
  return (anno % 4 == 0 && anno % 100 != 0) || anno % 400 == 0;
}

int giorniDelMese(int anno, int mese) {
  static constexpr std::array kGiorni{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return mese == 2 && bisestile(anno) ? 29 : kGiorni[static_cast<std::size_t>(mese - 1)];
}

bool esiste(const DataOra& m) {
  if (m.anno < 100 || m.anno > 9999 || m.mese < 1 || m.mese > 12) return false;
  if (m.giorno < 1 || m.giorno > giorniDelMese(m.anno, m.mese)) return false;
  return m.ora < 24 && m.minuto < 60 && m.secondo < 60;
}

bool leggiData(Cursore& cursore, DataOra& momento) {
  const auto primo = cursore.numero(4);
  if (!primo) return false;
  const bool annoPrima = cursore.letto() == 4;
  const std::string_view separatore = annoPrima ? "-" : "/-";
  if (!cursore.salta(separatore)) return false;
  const auto mese = cursore.numero(2);
  if (!mese || !cursore.salta(separatore)) return false;
  const auto ultimo = cursore.numero(4);
  if (!ultimo) return false;
  momento.mese = *mese;
  momento.giorno = annoPrima ? *ultimo : *primo;
  momento.anno = annoPrima ? *primo : *ultimo;
  if (!annoPrima && cursore.letto() <= 2) momento.anno += kSecolo;
  return true;
}

bool leggiOra(Cursore& cursore, DataOra& momento) {
  const auto ora = cursore.numero(2);
  if (!ora || !cursore.salta(":.")) return false;
  const auto minuto = cursore.numero(2);
  if (!minuto) return false;
  momento.ora = *ora;
  momento.minuto = *minuto;
  if (!cursore.salta(":.")) return true;
  const auto secondo = cursore.numero(2);
  if (!secondo) return false;
  momento.secondo = *secondo;
  return true;
}

void aggiungi(std::string& testo, int valore, std::size_t cifre) {
  const std::string numero = std::to_string(valore);
  if (numero.size() < cifre) testo.append(cifre - numero.size(), '0');
  testo += numero;
}

char minuscola(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace

std::optional<DataOra> LeggiDataOra(std::string_view testo) {
  Cursore cursore(testo);
  DataOra momento;
  cursore.saltaBianchi();
  if (!leggiData(cursore, momento)) return std::nullopt;
  cursore.saltaBianchi();
  if (!cursore.finito() && !leggiOra(cursore, momento)) return std::nullopt;
  cursore.saltaBianchi();
  if (!cursore.finito() || !esiste(momento)) return std::nullopt;
  return momento;
}

std::string FormaOrdinabile(const DataOra& m) {
  std::array<char, 80> testo{};
  std::snprintf(testo.data(), testo.size(), "%04d-%02d-%02d %02d:%02d:%02d", m.anno, m.mese, m.giorno, m.ora,
                m.minuto, m.secondo);
  return testo.data();
}

std::string FormaItaliana(const DataOra& m) {
  std::array<char, 80> testo{};
  std::snprintf(testo.data(), testo.size(), "%02d/%02d/%04d %02d:%02d:%02d", m.giorno, m.mese, m.anno, m.ora,
                m.minuto, m.secondo);
  return testo.data();
}

std::string FormattaDataOra(const DataOra& m, std::string_view maschera) {
  std::string testo;
  bool dopoLeOre = false;
  for (std::size_t i = 0; i < maschera.size();) {
    const char simbolo = minuscola(maschera[i]);
    std::size_t fine = i + 1;
    while (fine < maschera.size() && minuscola(maschera[fine]) == simbolo) ++fine;
    const std::size_t cifre = fine - i;
    switch (simbolo) {
      case 'd':
        aggiungi(testo, m.giorno, cifre);
        break;
      case 'm':
        aggiungi(testo, dopoLeOre ? m.minuto : m.mese, cifre);
        break;
      case 'y':
        aggiungi(testo, cifre <= 2 ? m.anno % 100 : m.anno, cifre <= 2 ? 2 : 4);
        break;
      case 'h':
        aggiungi(testo, m.ora, cifre);
        break;
      case 'n':
        aggiungi(testo, m.minuto, cifre);
        break;
      case 's':
        aggiungi(testo, m.secondo, cifre);
        break;
      case ':':
        testo.append(cifre, kSeparatoreOra);
        break;
      default:
        testo.append(maschera.substr(i, cifre));
        break;
    }
    if (simbolo == 'h') dopoLeOre = true;
    if (simbolo == 'd' || simbolo == 'y' || simbolo == 's') dopoLeOre = false;
    i = fine;
  }
  return testo;
}

}  // namespace store
