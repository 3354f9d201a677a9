#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

namespace rete {

/// Dotted form of an IPv4 address in network byte order.
QString puntato(std::uint32_t indirizzo);
/// IPv4 addresses of this computer's interfaces that are up, loopback aside, in the system's order.
QStringList indirizziDelleInterfacce();
/// IPv4 addresses of a host name; the single entry "<error>" if it does not resolve.
QStringList indirizziDelNome(const QString& nome);

}  // namespace rete
