#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <cstdint>
#include <optional>

/// One echo to an IPv4 address, by the ways that the system may grant to this process. A way that the system
/// refuses gives nothing, so that the next can be tried; otherwise a status.
namespace echo {

inline constexpr int kAnswered = 0;
/// The address does not convert, or no way is left.
inline constexpr int kNotSent = -1;
inline constexpr int kUnreachable = 11003;
inline constexpr int kExpired = 11010;

/// Network byte order.
using Address = std::uint32_t;
using Deadline = std::chrono::steady_clock::time_point;

/// As the platform's text conversion has it: short and octal forms are taken ("127.1"). Nothing for what does
/// not convert, and for the addresses 0.0.0.0 and 255.255.255.255, which callers cannot tell from a failure.
std::optional<Address> convert(const QString& text);

/// Datagram socket of the control protocol: the system lets ordinary users have it on many machines.
std::optional<int> byDatagram(Address address, const QByteArray& data, Deadline deadline);
/// Raw socket: for the superuser.
std::optional<int> byRaw(Address address, const QByteArray& data, Deadline deadline);
/// The system's own program, which has the right that this process lacks.
std::optional<int> byPing(Address address, const QByteArray& data, Deadline deadline,
                          const QString& program = QStringLiteral("ping"));

/// Tries the ways in this order.
int send(Address address, const QByteArray& data, Deadline deadline);

}  // namespace echo
