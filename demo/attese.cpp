#include "demo/attese.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace attese {

namespace {

constexpr std::size_t kSlot = 5000;
constexpr std::size_t kRecord = 48;

std::vector<std::string> campi(const std::string& riga) {
  std::vector<std::string> pezzi(1);
  for (const char c : riga) {
    if (c == ';')
      pezzi.emplace_back();
    else
      pezzi.back() += c;
  }
  return pezzi;
}

std::int32_t centesimi(const std::string& prezzo) {
  const std::size_t virgola = prezzo.find_first_of(",.");
  std::string decimali = virgola == std::string::npos ? "" : prezzo.substr(virgola + 1);
  decimali.resize(2, '0');
  return std::stoi(prezzo.substr(0, virgola)) * 100 + std::stoi(decimali);
}

void poni(std::string& immagine, std::size_t inizio, std::int32_t valore) {
  for (int i = 0; i < 4; ++i)
    immagine[inizio + static_cast<std::size_t>(i)] =
        static_cast<char>((static_cast<std::uint32_t>(valore) >> (8 * i)) & 0xff);
}

std::int32_t prendi(const std::string& byte, std::size_t inizio) {
  std::uint32_t valore = 0;
  for (std::size_t i = 0; i < 4; ++i)
    valore |= static_cast<std::uint32_t>(static_cast<unsigned char>(byte.at(inizio + i))) << (8 * i);
  return static_cast<std::int32_t>(valore);
}

}  // namespace

std::string leggiFile(const std::filesystem::path& file) {
  std::ifstream entrata(file, std::ios::binary);
  if (!entrata) throw std::runtime_error("cannot read " + file.string());
  return {std::istreambuf_iterator<char>(entrata), {}};
}

std::vector<Articolo> leggiElenco(const std::filesystem::path& file) {
  std::vector<Articolo> articoli;
  std::istringstream testo(leggiFile(file));
  for (std::string riga; std::getline(testo, riga);) {
    if (!riga.empty() && riga.back() == '\r') riga.pop_back();
    const std::vector<std::string> valori = campi(riga);
    if (valori.size() != 9) throw std::runtime_error("not nine fields: " + riga);
    articoli.push_back(
        {std::stoi(valori[0]), valori[1], valori[2], valori[3], centesimi(valori[4]), std::stoi(valori[5])});
  }
  return articoli;
}

std::string immaginePLU(const std::vector<Articolo>& articoli) {
  std::string immagine(kSlot * kRecord, '\0');
  for (const Articolo& articolo : articoli) {
    const std::size_t inizio = static_cast<std::size_t>(articolo.slot - 1) * kRecord;
    const std::string descrizione = articolo.descrizione.substr(0, 24);
    immagine.replace(inizio, descrizione.size(), descrizione);
    immagine[inizio + 25] = static_cast<char>(articolo.reparto - 1);
    poni(immagine, inizio + 27, articolo.prezzo);
    const std::string ean = articolo.ean.substr(0, 14);
    immagine.replace(inizio + 31, ean.size(), ean);
  }
  return immagine;
}

std::vector<Venduto> leggiVenduto(const std::filesystem::path& file) {
  const std::string byte = leggiFile(file);
  std::vector<Venduto> venduti;
  for (std::size_t i = 0; i < kSlot; ++i) {
    const Venduto uno{static_cast<int>(i) + 1, prendi(byte, 4 * i), prendi(byte, 4 * (kSlot + i)),
                      prendi(byte, 4 * (2 * kSlot + i))};
    if (uno.pezzi > 0) venduti.push_back(uno);
  }
  return venduti;
}

}  // namespace attese
