#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// One frame of the till's protocol: a header of fixed length, then as many data bytes as it announces.
/// docs/ecr-protocol.md lays it out; integers are little endian.
namespace ecrcom {

/// The one TCP port tills listen on.
inline constexpr std::uint16_t kPort = 17471;

enum class FrameType : std::uint8_t {
  Command = 1,    ///< to the till: a mode, in modes 6 and 7 a file name, in mode 6 the file
  Reply = 2,      ///< to the PC: the code, and in modes 0 and 7 what was asked for
  OpenKeys = 3,   ///< to the till: key sequences follow on this connection
  Keys = 4,       ///< to the till: one key sequence
  KeysReply = 5,  ///< to the PC: a block of what a key sequence prints to the line
};

inline constexpr std::size_t kHeaderBytes = 48;
/// The longest file a frame carries; the largest that tills know is plu.bin with 240000 bytes.
inline constexpr std::size_t kMaxBytes = std::size_t{4} * 1024 * 1024;
/// The longest file name; its field of 32 bytes always ends in a NUL.
inline constexpr std::size_t kMaxName = 31;
/// The longest key sequence and the longest block that answers one.
inline constexpr std::size_t kMaxKeys = 1024;

struct Header {
  FrameType kind = FrameType::Command;
  std::uint8_t mode = 0;
  std::int16_t code = 0;
  std::string name;
  std::uint32_t length = 0;
  std::uint32_t checksum = 0;
};

struct Frame {
  Header header;
  std::vector<std::uint8_t> data;
};

using HeaderBytes = std::array<std::uint8_t, kHeaderBytes>;
using Bytes = std::span<const std::uint8_t>;

/// How many data bytes a frame of that kind and mode carries at most: of what goes to the till only a file
/// that is sent may be long.
std::size_t maxData(const Header& head);
/// Whether these first bytes can still become a header; true for none at all.
bool canBeFrame(Bytes start);
/// Nothing if the bytes are no header: wrong mark, kind unknown, name without its NUL, data beyond bounds.
std::optional<Header> parseHeader(const HeaderBytes& byte);
/// Checksum of a header as far as it counts, and of the data behind what has been summed up so far. The sum
/// of both is what the header tells.
std::uint32_t headerChecksum(const HeaderBytes& byte);
std::uint32_t extendChecksum(std::uint32_t checksum, Bytes data);
/// Writes the header into the first kHeaderBytes bytes of a run whose rest are the data already. Bounds
/// as for compose(), std::length_error also for a run too short.
void writeHeader(const Header& header, std::vector<std::uint8_t>& frame);
/// Header and data as one run of bytes. `name` has at most kMaxName characters, `data` as many bytes as
/// frames of the kind and mode carry; throws std::length_error beyond.
std::vector<std::uint8_t> compose(const Header& header, Bytes data);
/// The frame at the beginning of `byte` and its length; nothing if it is not there whole, or is none.
struct ReadFrame {
  Frame frame;
  std::size_t length = 0;
};
std::optional<ReadFrame> parseFrame(Bytes byte);

/// The bytes of a text, for compose().
Bytes byteOf(std::string_view text);

}  // namespace ecrcom
