#pragma once

#include <QString>
#include <QStringList>

namespace rete {

/// IPv4 addresses of this computer's interfaces that are up, loopback aside, in the system's order.
QStringList indirizziDelleInterfacce();
/// IPv4 addresses of a host name; the single entry "<error>" if it does not resolve.
QStringList indirizziDelNome(const QString& nome);

}  // namespace rete
