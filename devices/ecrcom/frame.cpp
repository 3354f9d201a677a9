#include "ecrcom/frame.h"

#include <zlib.h>

#include <algorithm>
#include <stdexcept>

#include "platform/ecrcom/ecrcom.h"

namespace ecrcom {
namespace {

constexpr std::array<std::uint8_t, 4> kSign{'E', 'C', 'R', '1'};
constexpr std::size_t kTypeOffset = 4;
constexpr std::size_t kModeOffset = 5;
constexpr std::size_t kCodeOffset = 6;
constexpr std::size_t kLengthOffset = 8;
constexpr std::size_t kNameOffset = 12;
constexpr std::size_t kChecksumOffset = 44;
static_assert(kChecksumOffset - kNameOffset == kMaxName + 1);
static_assert(kChecksumOffset + 4 == kHeaderBytes);

std::uint32_t read(Bytes byte, std::size_t start, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = count; i > 0; --i) value = value << 8U | byte[start + i - 1];
  return value;
}

void write(std::span<std::uint8_t> byte, std::size_t start, std::size_t count, std::uint32_t value) {
  for (std::size_t i = 0; i < count; ++i) byte[start + i] = static_cast<std::uint8_t>(value >> 8U * i);
}

std::uint32_t sum(Bytes head) {
  return extendChecksum(static_cast<std::uint32_t>(crc32_z(0, nullptr, 0)), head.first(kChecksumOffset));
}

bool knownType(std::uint8_t kind) {
  return kind >= static_cast<std::uint8_t>(FrameType::Command) &&
         kind <= static_cast<std::uint8_t>(FrameType::KeysReply);
}

}  // namespace

std::size_t maxData(const Header& head) {
  switch (head.kind) {
    case FrameType::Command:
      return head.mode == ECR_SEND_MODE ? kMaxBytes : 0;
    case FrameType::Reply:
      return kMaxBytes;
    case FrameType::OpenKeys:
      return 0;
    case FrameType::Keys:
    case FrameType::KeysReply:
      break;
  }
  return kMaxKeys;
}

bool canBeFrame(Bytes start) {
  const std::size_t count = std::min(start.size(), kSign.size());
  return std::equal(start.begin(), start.begin() + static_cast<std::ptrdiff_t>(count), kSign.begin());
}

std::optional<Header> parseHeader(const HeaderBytes& byte) {
  if (!canBeFrame(byte) || !knownType(byte[kTypeOffset])) return std::nullopt;
  Header head;
  head.kind = static_cast<FrameType>(byte[kTypeOffset]);
  head.mode = byte[kModeOffset];
  head.code = static_cast<std::int16_t>(read(byte, kCodeOffset, 2));
  head.length = read(byte, kLengthOffset, 4);
  head.checksum = read(byte, kChecksumOffset, 4);
  if (head.length > maxData(head)) return std::nullopt;
  const auto start = byte.begin() + kNameOffset;
  const auto end = byte.begin() + kChecksumOffset;
  const auto nul = std::find(start, end, std::uint8_t{0});
  if (std::any_of(nul, end, [](std::uint8_t one) { return one != 0; }) || nul == end) return std::nullopt;
  head.name.assign(start, nul);
  return head;
}

std::uint32_t headerChecksum(const HeaderBytes& byte) {
  return sum(byte);
}

std::uint32_t extendChecksum(std::uint32_t checksum, Bytes data) {
  return data.empty() ? checksum : static_cast<std::uint32_t>(crc32_z(checksum, data.data(), data.size()));
}

void writeHeader(const Header& header, std::vector<std::uint8_t>& frame) {
  if (header.name.size() > kMaxName) throw std::length_error("nome");
  if (frame.size() < kHeaderBytes) throw std::length_error("testa");
  const Bytes data = Bytes(frame).subspan(kHeaderBytes);
  if (data.size() > maxData(header)) throw std::length_error("dati");
  std::fill_n(frame.begin(), kHeaderBytes, std::uint8_t{0});
  std::copy(kSign.begin(), kSign.end(), frame.begin());
  frame[kTypeOffset] = static_cast<std::uint8_t>(header.kind);
  frame[kModeOffset] = header.mode;
  write(frame, kCodeOffset, 2, static_cast<std::uint16_t>(header.code));
  write(frame, kLengthOffset, 4, static_cast<std::uint32_t>(data.size()));
  std::copy(header.name.begin(), header.name.end(), frame.begin() + kNameOffset);
  write(frame, kChecksumOffset, 4, extendChecksum(sum(frame), data));
}

std::vector<std::uint8_t> compose(const Header& header, Bytes data) {
  std::vector<std::uint8_t> frame(kHeaderBytes + data.size());
  std::copy(data.begin(), data.end(), frame.begin() + kHeaderBytes);
  writeHeader(header, frame);
  return frame;
}

std::optional<ReadFrame> parseFrame(Bytes byte) {
  if (byte.size() < kHeaderBytes) return std::nullopt;
  HeaderBytes head;
  std::copy_n(byte.begin(), kHeaderBytes, head.begin());
  const std::optional<Header> read = parseHeader(head);
  if (!read || byte.size() - kHeaderBytes < read->length) return std::nullopt;
  const Bytes data = byte.subspan(kHeaderBytes, read->length);
  if (extendChecksum(headerChecksum(head), data) != read->checksum) return std::nullopt;
  return ReadFrame{{*read, {data.begin(), data.end()}}, kHeaderBytes + data.size()};
}

Bytes byteOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace ecrcom
