#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ecrcom/frame.h"

namespace ecrcom {

enum class FileResult { Done, Missing, TooLarge, Error };

/// The whole of a regular file of at most kMaxBytes bytes, behind `front` bytes of any value.
FileResult readFile(const std::string& path, std::vector<std::uint8_t>& byte, std::size_t front = 0);
/// Puts a file in the place of another at one stroke: whoever looks, and whatever fails, the name stands for
/// the bytes before or for those after, and no partial file stays behind. With `sync` the new bytes
/// are on the disk before the name changes.
FileResult replaceFile(const std::string& path, Bytes byte, bool sync);

}  // namespace ecrcom
