#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// What must come out of the main road, computed a second time with nothing of the program's own code: plain
/// bytes from the article list and from the till's memory. Files that cannot be read throw
/// std::runtime_error.
namespace attese {

struct Articolo {
  int slot = 0;
  std::string ean;
  std::string codice;
  std::string descrizione;
  /// Hundredths.
  std::int32_t prezzo = 0;
  int reparto = 0;
};

/// The lines of a nine-field list, bytes as they stand.
std::vector<Articolo> leggiElenco(const std::filesystem::path& file);

/// The till's 240000 bytes for those articles, slots without an article as a fresh archive has them.
std::string immaginePLU(const std::vector<Articolo>& articoli);

struct Venduto {
  int slot = 0;
  std::int32_t importo = 0;
  std::int32_t pezzi = 0;
  std::int32_t sconto = 0;
  bool operator==(const Venduto&) const = default;
};

/// Slots with pieces, from the 60000 bytes of counters.
std::vector<Venduto> leggiVenduto(const std::filesystem::path& file);

std::string leggiFile(const std::filesystem::path& file);

}  // namespace attese
