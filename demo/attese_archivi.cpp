#include "demo/attese_archivi.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <stdexcept>

namespace attese {

namespace {

/// A whole number of units of 1 / 10^decimali as text.
std::string numero(std::int64_t valore, std::size_t decimali, char decimale) {
  std::string cifre = std::to_string(std::abs(valore));
  if (cifre.size() <= decimali) cifre.insert(0, decimali + 1 - cifre.size(), '0');
  cifre.insert(cifre.size() - decimali, 1, decimale);
  return (valore < 0 ? "-" : "") + cifre;
}

/// Hundredths with three decimals.
std::string conTre(std::int64_t centesimi, char decimale) {
  return numero(centesimi * 10, 3, decimale);
}

/// `num` / `den` thousandths, halves away from zero.
std::int64_t arrotonda(std::int64_t num, std::int64_t den) {
  const std::int64_t mezzo = (2 * std::abs(num) + den) / (2 * den);
  return num < 0 ? -mezzo : mezzo;
}

}  // namespace

std::string maiuscole(std::string testo) {
  for (char& c : testo)
    if (static_cast<unsigned char>(c) < 0x80) c = static_cast<char>(std::toupper(c));
  return testo;
}

std::vector<Articolo> cheCominciano(const std::vector<Articolo>& articoli, const std::string& inizio) {
  std::vector<Articolo> trovati;
  std::ranges::copy_if(articoli, std::back_inserter(trovati), [&](const Articolo& articolo) {
    return maiuscole(articolo.descrizione).starts_with(maiuscole(inizio));
  });
  std::ranges::stable_sort(trovati, {}, &Articolo::ean);
  return trovati;
}

std::string csvArticoli(const std::vector<Articolo>& articoli, char decimale) {
  std::string testo;
  int riga = 0;
  for (const Articolo& articolo : articoli)
    testo += std::to_string(++riga) + ';' + articolo.ean + ';' + articolo.codice + ';' +
             articolo.descrizione + ';' + numero(articolo.prezzo, 2, decimale) + ';' +
             std::to_string(articolo.reparto) + ";N;N; \r\n";
  return testo;
}

std::vector<std::string> righeVenduto(const std::vector<Venduto>& venduti,
                                      const std::vector<Articolo>& articoli, const std::string& giorno,
                                      char decimale) {
  std::vector<std::string> righe;
  for (const Venduto& venduto : venduti) {
    const Articolo& articolo = articoli.at(static_cast<std::size_t>(venduto.slot - 1));
    // Average: hundredths times ten over pieces are thousandths.
    const std::int64_t media = arrotonda(std::int64_t{venduto.importo} * 10, venduto.pezzi);
    righe.push_back(giorno + ';' + articolo.codice + ';' + articolo.ean + ';' + articolo.descrizione + ';' +
                    numero(media, 3, decimale) + ';' + std::to_string(venduto.pezzi) + ';' +
                    conTre(venduto.importo, decimale) + ';' + conTre(venduto.sconto, decimale));
  }
  return righe;
}

std::string totaliVenduto(const std::vector<Venduto>& venduti, char decimale) {
  long double medie = 0;
  std::int64_t pezzi = 0;
  std::int64_t importi = 0;
  std::int64_t sconti = 0;
  for (const Venduto& venduto : venduti) {
    medie += static_cast<long double>(venduto.importo) * 10 / venduto.pezzi;
    pezzi += venduto.pezzi;
    importi += venduto.importo;
    sconti += venduto.sconto;
  }
  return "TOTALE;;;;" + numero(static_cast<std::int64_t>(medie + 0.5L), 3, decimale) + ';' +
         numero(pezzi * 1000, 3, decimale) + ';' + conTre(importi, decimale) + ';' + conTre(sconti, decimale);
}

std::vector<std::string> righeCrLf(const std::string& testo) {
  std::vector<std::string> righe;
  for (std::size_t inizio = 0; inizio < testo.size();) {
    const std::size_t fine = testo.find("\r\n", inizio);
    if (fine == std::string::npos) throw std::runtime_error("a line without its end");
    righe.push_back(testo.substr(inizio, fine - inizio));
    inizio = fine + 2;
  }
  return righe;
}

}  // namespace attese
