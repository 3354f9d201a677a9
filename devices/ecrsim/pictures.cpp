#include "ecrsim/pictures.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "ecrcom/codes.h"

namespace ecrsim {
namespace {

using ecrcom::Bytes;

/// Width and height, 16 bits each, in front of the rows.
constexpr std::size_t kNumberBytes = 2;
constexpr std::size_t kHeadBytes = 2 * kNumberBytes;
constexpr std::size_t kDotsPerByte = 8;

std::size_t number(Bytes byte) {
  return byte[0] + (std::size_t{byte[1]} << 8U);
}

/// The picture at the front of `rest`, which is left behind it.
std::optional<Picture> takePicture(Bytes& rest, std::size_t width) {
  if (rest.size() < kHeadBytes) return std::nullopt;
  Picture picture{number(rest), number(rest.subspan(kNumberBytes)), {}};
  if (picture.width != width || picture.height < 1 || picture.height > kHighestPicture) return std::nullopt;
  rest = rest.subspan(kHeadBytes);
  const std::size_t byte = (width + kDotsPerByte - 1) / kDotsPerByte * picture.height;
  if (rest.size() < byte) return std::nullopt;
  picture.rows = rest.first(byte);
  rest = rest.subspan(byte);
  return picture;
}

/// "grafica/01.pbm" for the first.
std::string paperName(std::size_t number) {
  const std::string digits = std::to_string(number);
  return std::string(kPicturesFolder) + (digits.size() < 2 ? "/0" : "/") + digits + ".pbm";
}

/// A portable bitmap packs its dots as the till does, so that the rows are copied as they came.
std::vector<std::uint8_t> portableBitmap(const Picture& picture) {
  const std::string head =
      "P4\n" + std::to_string(picture.width) + ' ' + std::to_string(picture.height) + '\n';
  std::vector<std::uint8_t> byte(head.begin(), head.end());
  byte.insert(byte.end(), picture.rows.begin(), picture.rows.end());
  return byte;
}

}  // namespace

std::optional<Pictures> readPictures(Bytes file, std::string_view bitmap) {
  const std::size_t width = bitmap == "S" ? kSmallWidth : kLargeWidth;
  Pictures pictures;
  for (Picture& one : pictures) {
    const std::optional<Picture> taken = takePicture(file, width);
    if (!taken) return std::nullopt;
    one = *taken;
  }
  if (!file.empty()) return std::nullopt;
  return pictures;
}

std::int16_t printPictures(const Pictures& pictures, const Memory& memory) {
  std::error_code error;
  std::filesystem::create_directories(memory.folder() / kPicturesFolder, error);
  if (error) return ecrcom::kTillMemory;
  std::size_t number = 0;
  for (const Picture& one : pictures) {
    const std::int16_t code = memory.write(paperName(++number), portableBitmap(one));
    if (code != ecrcom::kDone) return code;
  }
  return ecrcom::kDone;
}

}  // namespace ecrsim
