#include "ecrcom/socket.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace ecrcom {
namespace {

#ifdef MSG_NOSIGNAL
constexpr int kNoSignal = MSG_NOSIGNAL;
#else
constexpr int kNoSignal = 0;
#endif

void prepare(int descriptor) {
  fcntl(descriptor, F_SETFD, FD_CLOEXEC);
  fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
  const int yes = 1;
  setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
#ifdef SO_NOSIGPIPE
  setsockopt(descriptor, SOL_SOCKET, SO_NOSIGPIPE, &yes, sizeof yes);
#endif
}

/// Milliseconds left, rounded up so that no wait ends before its deadline.
int remaining(std::optional<Deadline> deadline) {
  if (!deadline) return -1;
  const auto rest = std::chrono::ceil<std::chrono::milliseconds>(*deadline - Clock::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(rest, 0, 24L * 3600 * 1000));
}

bool transient() {
  return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

}  // namespace

Socket::Socket(int descriptor) : descriptor_(descriptor) {
  if (isOpen()) prepare(descriptor_);
}

Socket::~Socket() {
  close();
}

Socket::Socket(Socket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

Socket& Socket::operator=(Socket&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

void Socket::close() {
  if (isOpen()) ::close(std::exchange(descriptor_, -1));
}

void Socket::dismiss(Deadline deadline) const {
  if (!isOpen()) return;
  shutdown(descriptor_, SHUT_WR);
  std::array<std::uint8_t, 4096> rest;
  std::size_t count = 0;
  while (receiveSome(*this, rest, deadline, count) == IoResult::Done) continue;
}

std::optional<in_addr> address(const std::string& text) {
  in_addr result{};
  if (inet_pton(AF_INET, text.c_str(), &result) != 1) return std::nullopt;
  return result;
}

IoResult awaitEvent(const Socket& connection, short event, std::optional<Deadline> deadline) {
  for (;;) {
    pollfd wait{connection.descriptor(), event, 0};
    const int ready = poll(&wait, 1, remaining(deadline));
    if (ready > 0) return IoResult::Done;
    if (ready == 0) return IoResult::Expired;
    if (errno != EINTR) return IoResult::Resources;
  }
}

IoResult connect(in_addr address, Deadline deadline, Socket& connection) {
  connection = Socket(socket(AF_INET, SOCK_STREAM, 0));
  if (!connection.isOpen()) return IoResult::Resources;
  sockaddr_in where{};
  where.sin_family = AF_INET;
  where.sin_port = htons(kPort);
  where.sin_addr = address;
  if (connect(connection.descriptor(), reinterpret_cast<sockaddr*>(&where), sizeof where) == 0)
    return IoResult::Done;
  if (errno != EINPROGRESS && errno != EINTR) return IoResult::Refused;
  const IoResult wait = awaitEvent(connection, POLLOUT, deadline);
  if (wait != IoResult::Done) return wait;
  int error = 0;
  socklen_t length = sizeof error;
  getsockopt(connection.descriptor(), SOL_SOCKET, SO_ERROR, &error, &length);
  return error == 0 ? IoResult::Done : IoResult::Refused;
}

IoResult dispatch(const Socket& connection, Bytes byte, Deadline deadline) {
  while (!byte.empty()) {
    const ssize_t count = send(connection.descriptor(), byte.data(), byte.size(), kNoSignal);
    if (count >= 0) {
      byte = byte.subspan(static_cast<std::size_t>(count));
    } else if (!transient()) {
      return IoResult::Cut;
    }
    if (byte.empty()) break;
    const IoResult wait = awaitEvent(connection, POLLOUT, deadline);
    if (wait != IoResult::Done) return wait;
  }
  return IoResult::Done;
}

IoResult receiveSome(const Socket& connection, std::span<std::uint8_t> byte, Deadline deadline,
                     std::size_t& count) {
  for (;;) {
    // The clock is asked before the line: a peer that never stops sending must not outrun the deadline.
    if (Clock::now() >= deadline) return IoResult::Expired;
    const ssize_t read = recv(connection.descriptor(), byte.data(), byte.size(), 0);
    if (read == 0) return IoResult::Cut;
    if (read > 0) {
      count = static_cast<std::size_t>(read);
      return IoResult::Done;
    }
    if (!transient()) return IoResult::Cut;
    const IoResult wait = awaitEvent(connection, POLLIN, deadline);
    if (wait != IoResult::Done) return wait;
  }
}

IoResult receive(const Socket& connection, std::span<std::uint8_t> byte, Deadline deadline, bool check) {
  std::size_t arrived = 0;
  while (arrived < byte.size()) {
    std::size_t count = 0;
    const IoResult outcome = receiveSome(connection, byte.subspan(arrived), deadline, count);
    if (outcome != IoResult::Done) return outcome;
    arrived += count;
    if (check && !canBeFrame(byte.first(arrived))) return IoResult::Garbage;
  }
  return IoResult::Done;
}

// Summed up piece by piece, while the rest is still on its way.
IoResult receiveData(const Socket& connection, const HeaderBytes& head, Deadline deadline, Frame& frame) {
  frame.data.resize(frame.header.length);
  std::uint32_t checksum = headerChecksum(head);
  for (std::span<std::uint8_t> rest = frame.data; !rest.empty();) {
    std::size_t count = 0;
    const IoResult outcome = receiveSome(connection, rest, deadline, count);
    if (outcome != IoResult::Done) return outcome;
    checksum = extendChecksum(checksum, rest.first(count));
    rest = rest.subspan(count);
  }
  return checksum == frame.header.checksum ? IoResult::Done : IoResult::Garbage;
}

IoResult receiveFrame(const Socket& connection, Deadline deadline, Frame& frame) {
  HeaderBytes head;
  const IoResult outcome = receive(connection, head, deadline, true);
  if (outcome != IoResult::Done) return outcome;
  const std::optional<Header> read = parseHeader(head);
  if (!read) return IoResult::Garbage;
  frame.header = *read;
  return receiveData(connection, head, deadline, frame);
}

}  // namespace ecrcom
