#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <span>

/// The echo of the internet control messages: packets as bytes, no socket in sight.
namespace icmp {

/// An echo request with its checksum.
QByteArray richiestaEco(std::uint16_t identificatore, std::uint16_t sequenza, const QByteArray& dati);

/// The control message inside an IPv4 packet, as a raw socket hands it over; empty if the packet is too
/// short, of another version or of another protocol.
std::span<const std::uint8_t> messaggioDi(std::span<const std::uint8_t> pacchettoIp);

/// True if `messaggio` is the reply to the request with these values. A datagram socket has its own
/// identifier, which is not looked at then: hand over nothing.
bool risponde(std::span<const std::uint8_t> messaggio, std::optional<std::uint16_t> identificatore,
              std::uint16_t sequenza, const QByteArray& dati);

}  // namespace icmp
