#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <span>

/// The echo of the internet control messages: packets as bytes, no socket in sight.
namespace icmp {

/// An echo request with its checksum.
QByteArray echoRequest(std::uint16_t identifier, std::uint16_t sequence, const QByteArray& data);

/// The control message inside an IPv4 packet, as a raw socket hands it over; empty if the packet is too
/// short, of another version or of another protocol.
std::span<const std::uint8_t> messageOf(std::span<const std::uint8_t> ipPacket);

/// True if `message` is the reply to the request with these values. A datagram socket has its own
/// identifier, which is not looked at then: hand over nothing.
bool answers(std::span<const std::uint8_t> message, std::optional<std::uint16_t> identifier,
             std::uint16_t sequence, const QByteArray& data);

}  // namespace icmp
