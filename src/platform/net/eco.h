#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <cstdint>
#include <optional>

/// One echo to an IPv4 address, by the ways that the system may grant to this process. A way that the system
/// refuses gives nothing, so that the next can be tried; otherwise a status.
namespace eco {

inline constexpr int kRisposto = 0;
/// The address does not convert, or no way is left.
inline constexpr int kNonInviato = -1;
inline constexpr int kNonRaggiungibile = 11003;
inline constexpr int kScaduto = 11010;

/// Network byte order.
using Indirizzo = std::uint32_t;
using Scadenza = std::chrono::steady_clock::time_point;

/// As the platform's text conversion has it: short and octal forms are taken ("127.1"). Nothing for what does
/// not convert, and for the addresses 0.0.0.0 and 255.255.255.255, which callers cannot tell from a failure.
std::optional<Indirizzo> converti(const QString& testo);

/// Datagram socket of the control protocol: the system lets ordinary users have it on many machines.
std::optional<int> perDatagramma(Indirizzo indirizzo, const QByteArray& dati, Scadenza scadenza);
/// Raw socket: for the superuser.
std::optional<int> perGrezzo(Indirizzo indirizzo, const QByteArray& dati, Scadenza scadenza);
/// The system's own program, which has the right that this process lacks.
std::optional<int> perPing(Indirizzo indirizzo, const QByteArray& dati, Scadenza scadenza,
                           const QString& programma = QStringLiteral("ping"));

/// Tries the ways in this order.
int invia(Indirizzo indirizzo, const QByteArray& dati, Scadenza scadenza);

}  // namespace eco
