#include "ecrsim/file_noti.h"

#include <algorithm>
#include <array>

namespace ecrsim {
namespace {

constexpr bool kSi = true;
constexpr bool kNo = false;

// Programme files come one byte longer than their records, the last one zero; the articles come exact.
constexpr std::array kFile{
    FileNoto{"intestazione.bin", 208 + 1, 304 + 1, kSi, kSi, kSi},
    FileNoto{"cortesia.bin", 54 + 1, 78 + 1, kSi, kSi, kSi},
    FileNoto{"reparti.bin", 3360 + 1, 3360 + 1, kSi, kSi, kSi},
    FileNoto{kFilePlu, 240000, 240000, kSi, kSi, kSi},
    FileNoto{"iva.bin", 232 + 1, 232 + 1, kSi, kSi, kSi},
    FileNoto{"val.bin", 116 + 1, 116 + 1, kSi, kSi, kSi},
    FileNoto{"operatori.bin", 330 + 1, 330 + 1, kSi, kSi, kSi},
    FileNoto{"prog_param.bin", 428 + 1, 428 + 1, kSi, kSi, kSi},
    FileNoto{"logo.bin", 120 + 1, 120 + 1, kSi, kSi, kSi},
    FileNoto{"clienti.bin", std::size_t{250} * 177, std::size_t{250} * 177, kSi, kSi, kNo},
    FileNoto{"bitmap.bin", 0, 0, kSi, kNo, kNo},
    FileNoto{kFileVenduto, kByteVenduto, kByteVenduto, kNo, kSi, kNo},
    FileNoto{kFileFatture, kByteFatture, kByteFatture, kNo, kSi, kNo},
};

}  // namespace

bool FileNoto::accetta(std::size_t quanti, std::string_view bitmap) const {
  const std::size_t attesi = byte(bitmap);
  return attesi == 0 ? quanti > 0 : quanti == attesi || quanti == byteGrande;
}

std::span<const FileNoto> fileNoti() {
  return kFile;
}

const FileNoto* fileNoto(std::string_view nome) {
  const auto noto =
      std::find_if(kFile.begin(), kFile.end(), [&](const FileNoto& uno) { return uno.nome == nome; });
  return noto == kFile.end() ? nullptr : &*noto;
}

}  // namespace ecrsim
