#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "ecrcom/frame.h"

namespace ecrsim {

/// The till's memory: a folder, one file for each name. Each write replaces a file whole. Codes are those of
/// ecrcom/codici.h.
class Memory {
 public:
  /// The current folder if the path is empty. Makes the folder if it is missing; throws
  /// std::filesystem::filesystem_error if it cannot.
  explicit Memory(const std::filesystem::path& folder);

  bool has(std::string_view name) const;
  std::int16_t read(std::string_view name, std::vector<std::uint8_t>& byte) const;
  std::int16_t write(std::string_view name, ecrcom::Bytes byte) const;
  /// A file of so many zero bytes.
  std::int16_t clear(std::string_view name, std::size_t byte) const;
  /// Writes behind the end of a text file; returns whether it could.
  bool note(std::string_view name, std::string_view text) const;
  const std::filesystem::path& folder() const { return folder_; }

 private:
  std::filesystem::path folder_;
};

}  // namespace ecrsim
