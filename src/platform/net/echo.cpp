#include "platform/net/echo.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QProcess>
#include <algorithm>
#include <array>
#include <cerrno>
#include <span>

#include "platform/net/addresses.h"
#include "platform/net/icmp_packet.h"

namespace echo {

namespace {

constexpr std::uint16_t kSequence = 1;
constexpr std::size_t kMaxPacket = 65536;

/// Milliseconds left, rounded up so that a wait never ends before its time; 0 when it is over.
int remain(Deadline deadline) {
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
  return static_cast<int>(std::max<std::chrono::milliseconds::rep>(rest.count(), 0));
}

class Socket {
 public:
  explicit Socket(int kind) : number_(::socket(AF_INET, kind | SOCK_CLOEXEC | SOCK_NONBLOCK, IPPROTO_ICMP)) {}
  ~Socket() {
    if (number_ >= 0) ::close(number_);
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  bool open() const { return number_ >= 0; }

  /// Connected, so that what others say meanwhile, an earlier address's late reply say, is not heard.
  bool send(Address address, const QByteArray& message) const {
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_addr.s_addr = address;
    const auto* generic = reinterpret_cast<const sockaddr*>(&target);
    return ::connect(number_, generic, sizeof target) == 0 &&
           ::send(number_, message.constData(), static_cast<std::size_t>(message.size()), MSG_NOSIGNAL) ==
               message.size();
  }

  /// Waits for a packet for which `ours` is true; any other (a raw socket hears them all) is passed over.
  template <typename Ours>
  int await(Deadline deadline, Ours ours) const {
    std::array<std::uint8_t, kMaxPacket> byte;
    while (const int rest = remain(deadline)) {
      pollfd wait{number_, POLLIN, 0};
      if (::poll(&wait, 1, rest) <= 0) continue;
      const ssize_t read = ::recv(number_, byte.data(), byte.size(), MSG_DONTWAIT);
      if (read < 0 && errno != EAGAIN && errno != EINTR) return kUnreachable;
      if (read > 0 && ours(std::span(byte).first(static_cast<std::size_t>(read)))) return kAnswered;
    }
    return kExpired;
  }

 private:
  int number_;
};

std::uint16_t identifier() {
  return static_cast<std::uint16_t>(::getpid() & 0xFFFF);
}

}  // namespace

std::optional<Address> convert(const QString& text) {
  const in_addr_t address = ::inet_addr(text.toLatin1().constData());
  if (address == INADDR_NONE || address == INADDR_ANY) return std::nullopt;
  return address;
}

std::optional<int> byDatagram(Address address, const QByteArray& data, Deadline deadline) {
  const Socket connection(SOCK_DGRAM);
  if (!connection.open()) return std::nullopt;
  if (!connection.send(address, icmp::echoRequest(identifier(), kSequence, data))) return kUnreachable;
  return connection.await(deadline, [&](std::span<const std::uint8_t> message) {
    return icmp::answers(message, std::nullopt, kSequence, data);
  });
}

std::optional<int> byRaw(Address address, const QByteArray& data, Deadline deadline) {
  const Socket connection(SOCK_RAW);
  if (!connection.open()) return std::nullopt;
  if (!connection.send(address, icmp::echoRequest(identifier(), kSequence, data))) return kUnreachable;
  // On the loopback the request itself comes in first.
  return connection.await(deadline, [&](std::span<const std::uint8_t> packet) {
    return icmp::answers(icmp::messageOf(packet), identifier(), kSequence, data);
  });
}

std::optional<int> byPing(Address address, const QByteArray& data, Deadline deadline,
                          const QString& program) {
  constexpr int kNoReply = 1;
  QProcess ping;
  ping.setStandardOutputFile(QProcess::nullDevice());
  ping.setStandardErrorFile(QProcess::nullDevice());
  ping.start(program, {QStringLiteral("-n"), QStringLiteral("-c1"), QStringLiteral("-W1"),
                       QStringLiteral("-s"), QString::number(data.size()), QStringLiteral("-p"),
                       QString::fromLatin1(data.toHex()), network::dotted(address)});
  if (!ping.waitForStarted()) return std::nullopt;
  if (!ping.waitForFinished(remain(deadline))) {
    ping.kill();
    ping.waitForFinished();
    return kExpired;
  }
  if (ping.exitStatus() != QProcess::NormalExit || ping.exitCode() > kNoReply) return std::nullopt;
  return ping.exitCode() == 0 ? kAnswered : kExpired;
}

int send(Address address, const QByteArray& data, Deadline deadline) {
  if (const auto status = byDatagram(address, data, deadline)) return *status;
  if (const auto status = byRaw(address, data, deadline)) return *status;
  return byPing(address, data, deadline).value_or(kNotSent);
}

}  // namespace echo
