#include "platform/net/icmp_packet.h"

#include <algorithm>

namespace icmp {

namespace {

constexpr std::uint8_t kReplyType = 0;
constexpr std::uint8_t kRequestType = 8;
constexpr std::size_t kHeader = 8;
constexpr std::size_t kChecksumOffset = 2;
constexpr std::size_t kIdentifierOffset = 4;
constexpr std::size_t kSequenceOffset = 6;

constexpr std::size_t kIpHeader = 20;
constexpr std::size_t kIpProtocolOffset = 9;
constexpr std::uint8_t kIcmpProtocol = 1;
constexpr unsigned kVersion4 = 4;
constexpr std::size_t kWordBytes = 4;

std::uint16_t word(std::span<const std::uint8_t> byte, std::size_t place) {
  return static_cast<std::uint16_t>(byte[place] << 8 | byte[place + 1]);
}

void write(QByteArray& byte, std::size_t place, std::uint16_t value) {
  const auto first = static_cast<qsizetype>(place);
  byte[first] = static_cast<char>(value >> 8);
  byte[first + 1] = static_cast<char>(value & 0xFF);
}

/// The internet checksum: one's complement of the one's complement sum of the 16-bit words.
std::uint16_t sum(const QByteArray& byte) {
  std::uint32_t total = 0;
  for (qsizetype i = 0; i < byte.size(); ++i) {
    const auto value = static_cast<std::uint8_t>(byte[i]);
    total += i % 2 == 0 ? static_cast<std::uint32_t>(value) << 8 : value;
  }
  while (total >> 16) total = (total & 0xFFFF) + (total >> 16);
  return static_cast<std::uint16_t>(~total);
}

}  // namespace

QByteArray echoRequest(std::uint16_t identifier, std::uint16_t sequence, const QByteArray& data) {
  QByteArray message(kHeader, '\0');
  message[0] = static_cast<char>(kRequestType);
  write(message, kIdentifierOffset, identifier);
  write(message, kSequenceOffset, sequence);
  message += data;
  write(message, kChecksumOffset, sum(message));
  return message;
}

std::span<const std::uint8_t> messageOf(std::span<const std::uint8_t> ipPacket) {
  if (ipPacket.size() < kIpHeader) return {};
  const std::size_t header = (ipPacket[0] & 0x0Fu) * kWordBytes;
  const bool ours = ipPacket[0] >> 4 == kVersion4 && ipPacket[kIpProtocolOffset] == kIcmpProtocol;
  if (!ours || header < kIpHeader || header > ipPacket.size()) return {};
  return ipPacket.subspan(header);
}

bool answers(std::span<const std::uint8_t> message, std::optional<std::uint16_t> identifier,
             std::uint16_t sequence, const QByteArray& data) {
  if (message.size() < kHeader || message[0] != kReplyType || message[1] != 0) return false;
  if (identifier && word(message, kIdentifierOffset) != *identifier) return false;
  if (word(message, kSequenceOffset) != sequence) return false;
  return std::ranges::equal(message.subspan(kHeader), data, {}, {},
                            [](char c) { return static_cast<std::uint8_t>(c); });
}

}  // namespace icmp
