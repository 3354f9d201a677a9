#include "ecrsim/known_files.h"

#include <algorithm>
#include <array>

namespace ecrsim {
namespace {

constexpr bool kYes = true;
constexpr bool kNo = false;

// Programme files come one byte longer than their records, the last one zero; the articles come exact.
constexpr std::array kFile{
    KnownFile{"intestazione.bin", 208 + 1, 304 + 1, kYes, kYes, kYes},
    KnownFile{"cortesia.bin", 54 + 1, 78 + 1, kYes, kYes, kYes},
    KnownFile{"reparti.bin", 3360 + 1, 3360 + 1, kYes, kYes, kYes},
    KnownFile{kPluFile, 240000, 240000, kYes, kYes, kYes},
    KnownFile{"iva.bin", 232 + 1, 232 + 1, kYes, kYes, kYes},
    KnownFile{"val.bin", 116 + 1, 116 + 1, kYes, kYes, kYes},
    KnownFile{"operatori.bin", 330 + 1, 330 + 1, kYes, kYes, kYes},
    KnownFile{"prog_param.bin", 428 + 1, 428 + 1, kYes, kYes, kYes},
    KnownFile{"logo.bin", 120 + 1, 120 + 1, kYes, kYes, kYes},
    KnownFile{kCustomersFile, kCustomersBytes, kCustomersBytes, kYes, kYes, kNo},
    KnownFile{kPicturesFile, 0, 0, kYes, kNo, kNo},
    KnownFile{kSalesFile, kSalesBytes, kSalesBytes, kNo, kYes, kNo},
    KnownFile{kInvoicesFile, kInvoicesBytes, kInvoicesBytes, kNo, kYes, kNo},
};

}  // namespace

bool KnownFile::accepts(std::size_t count, std::string_view bitmap) const {
  const std::size_t expected = byte(bitmap);
  return expected == 0 ? count > 0 : count == expected || count == largeBytes;
}

std::span<const KnownFile> knownFiles() {
  return kFile;
}

const KnownFile* knownFile(std::string_view name) {
  const auto known =
      std::find_if(kFile.begin(), kFile.end(), [&](const KnownFile& one) { return one.name == name; });
  return known == kFile.end() ? nullptr : &*known;
}

}  // namespace ecrsim
