#pragma once

#include <cstddef>
#include <span>
#include <string_view>

/// The files that a till knows by name, and the sizes it takes them in.
namespace ecrsim {

inline constexpr std::string_view kPluFile = "plu.bin";
inline constexpr std::string_view kSalesFile = "venduto.bin";
inline constexpr std::string_view kInvoicesFile = "fatture.bin";
inline constexpr std::string_view kCustomersFile = "clienti.bin";
inline constexpr std::string_view kPicturesFile = "bitmap.bin";
inline constexpr std::string_view kJournalFile = "giornale.txt";
inline constexpr std::string_view kFiscalMemoryFile = "memoria_fiscale.txt";
inline constexpr std::string_view kCountersFile = "contatori.txt";

struct KnownFile {
  std::string_view name;
  /// Bytes as sent to a till of class "S" and of any other; 0: of no
  /// fixed length, what stands in it decides (pictures.h).
  std::size_t smallBytes;
  std::size_t largeBytes;
  /// Whether the till takes it, and whether it hands it over.
  bool sendable;
  bool fetchable;
  /// Whether it is part of the programming that mode 3 clears.
  bool programming;

  /// A small till also takes what was written over a large till's file, whose tail it does not read.
  bool accepts(std::size_t count, std::string_view bitmap) const;
  /// Whether it is refused while fiscal data are open: rates, departments and what prints on a receipt hold
  /// for a whole fiscal day. Articles change at the counter too.
  bool wantsClosedDay() const { return programming && name != kPluFile; }
  std::size_t byte(std::string_view bitmap) const { return bitmap == "S" ? smallBytes : largeBytes; }
};

inline constexpr std::size_t kPlaces = 5000;
/// Amounts, pieces, discounts: three arrays of a 32-bit integer for each slot.
inline constexpr std::size_t kSalesBytes = 3 * kPlaces * 4;
inline constexpr std::size_t kInvoicesBytes = std::size_t{1000} * 77;
inline constexpr std::size_t kCustomersBytes = std::size_t{250} * 177;

/// The known file of that name, case and all, or null.
const KnownFile* knownFile(std::string_view name);
std::span<const KnownFile> knownFiles();

}  // namespace ecrsim
