#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "ecrcom/frame.h"
#include "ecrsim/memory.h"

/// The pictures of the receipts, as a PC sends them in kPicturesFile. Their form is told in
/// docs/picture-format.md.
namespace ecrsim {

inline constexpr std::size_t kPictures = 12;
/// Dots in a line of the printer of a till of class "S", and of any other.
inline constexpr std::size_t kSmallWidth = 384;
inline constexpr std::size_t kLargeWidth = 640;
/// Lines of dots that a picture may have.
inline constexpr std::size_t kHighestPicture = 800;
/// The folder of the paper's pictures, within the till's own.
inline constexpr std::string_view kPicturesFolder = "grafica";

struct Picture {
  std::size_t width = 0;
  std::size_t height = 0;
  /// The rows from the top, within the file that the picture was read from.
  ecrcom::Bytes rows;
};
using Pictures = std::array<Picture, kPictures>;

/// The pictures in `file` for a till of size class `bitmap`. Nothing unless there are twelve of its printer's
/// width, each whole and 1 to kHighestPicture lines high, and not a byte more.
std::optional<Pictures> readPictures(ecrcom::Bytes file, std::string_view bitmap);

/// Prints them: `01.pbm` to `12.pbm` in kPicturesFolder, in the place of those before, each written whole. On
/// a memory that fails the code is ecrcom::kTillMemory, and what stands behind the failure is still of
/// before.
std::int16_t printPictures(const Pictures& pictures, const Memory& memory);

}  // namespace ecrsim
