#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "ecrcom/trama.h"

namespace ecrsim {

/// The till's memory: a folder, one file for each name. Each write replaces a file whole. Codes are those of
/// ecrcom/codici.h.
class Memoria {
 public:
  /// The current folder if the path is empty. Makes the folder if it is missing; throws
  /// std::filesystem::filesystem_error if it cannot.
  explicit Memoria(const std::filesystem::path& cartella);

  std::int16_t leggi(std::string_view nome, std::vector<std::uint8_t>& byte) const;
  std::int16_t scrivi(std::string_view nome, ecrcom::Byte byte) const;
  /// A file of so many zero bytes.
  std::int16_t azzera(std::string_view nome, std::size_t byte) const;
  /// Writes behind the end of a text file; returns whether it could.
  bool annota(std::string_view nome, std::string_view testo) const;
  const std::filesystem::path& cartella() const { return cartella_; }

 private:
  std::filesystem::path cartella_;
};

}  // namespace ecrsim
