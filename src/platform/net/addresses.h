#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

namespace network {

/// Dotted form of an IPv4 address in network byte order.
QString dotted(std::uint32_t address);
/// IPv4 addresses of this computer's interfaces that are up, loopback aside, in the system's order.
QStringList interfaceAddresses();
/// IPv4 addresses of a host name; the single entry "<error>" if it does not resolve.
QStringList addressesOfName(const QString& name);

}  // namespace network
