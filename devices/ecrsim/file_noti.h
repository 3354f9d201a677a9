#pragma once

#include <cstddef>
#include <span>
#include <string_view>

/// The files that a till knows by name, and the sizes it takes them in.
namespace ecrsim {

struct FileNoto {
  std::string_view nome;
  /// Bytes as sent to a till of class "S" and of any other; 0: whatever the length, from 1.
  std::size_t bytePiccola;
  std::size_t byteGrande;
  /// Whether the till takes it, and whether it hands it over.
  bool siInvia;
  bool siRiceve;
  /// Whether it is part of the programming that mode 3 clears.
  bool programmazione;

  /// A small till also takes what was written over a large till's file, whose tail it does not read.
  bool accetta(std::size_t quanti, std::string_view bitmap) const;
  std::size_t byte(std::string_view bitmap) const { return bitmap == "S" ? bytePiccola : byteGrande; }
};

inline constexpr std::string_view kFilePlu = "plu.bin";
inline constexpr std::string_view kFileVenduto = "venduto.bin";
inline constexpr std::string_view kFileFatture = "fatture.bin";
inline constexpr std::string_view kFileGiornale = "giornale.txt";

inline constexpr std::size_t kPosti = 5000;
/// Amounts, pieces, discounts: three arrays of a 32-bit integer for each slot.
inline constexpr std::size_t kByteVenduto = 3 * kPosti * 4;
inline constexpr std::size_t kByteFatture = std::size_t{1000} * 77;

/// The known file of that name, case and all, or null.
const FileNoto* fileNoto(std::string_view nome);
std::span<const FileNoto> fileNoti();

}  // namespace ecrsim
