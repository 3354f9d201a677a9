#include "bench/plain_socket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace {

constexpr std::uint16_t kPort = 17999;
constexpr std::size_t kAnswer = 64;

sockaddr_in point(const std::string& address) {
  sockaddr_in here{};
  here.sin_family = AF_INET;
  here.sin_port = htons(kPort);
  inet_pton(AF_INET, address.c_str(), &here.sin_addr);
  return here;
}

bool readAll(int connection, void* where, std::size_t count) {
  auto* byte = static_cast<char*>(where);
  while (count > 0) {
    const ssize_t read = recv(connection, byte, count, 0);
    if (read <= 0) return false;
    byte += read;
    count -= static_cast<std::size_t>(read);
  }
  return true;
}

bool sendAll(int connection, const void* what, std::size_t count) {
  const auto* byte = static_cast<const char*>(what);
  while (count > 0) {
    const ssize_t sent = ::send(connection, byte, count, MSG_NOSIGNAL);
    if (sent <= 0) return false;
    byte += sent;
    count -= static_cast<std::size_t>(sent);
  }
  return true;
}

}  // namespace

PlainSocket::PlainSocket(std::string address)
    : address_(std::move(address)), listener_(socket(AF_INET, SOCK_STREAM, 0)) {
  const int one = 1;
  setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
  const sockaddr_in here = point(address_);
  if (bind(listener_, reinterpret_cast<const sockaddr*>(&here), sizeof here) != 0 ||
      listen(listener_, 8) != 0)
    throw std::runtime_error("cannot listen");
  thread_ = std::thread([this] { serve(); });
}

PlainSocket::~PlainSocket() {
  shutdown(listener_, SHUT_RDWR);
  thread_.join();
  close(listener_);
}

void PlainSocket::serve() const {
  std::vector<char> buffer;
  const std::array<char, kAnswer> answer{};
  for (int connection = accept(listener_, nullptr, nullptr); connection >= 0;
       connection = accept(listener_, nullptr, nullptr)) {
    std::uint64_t count = 0;
    if (readAll(connection, &count, sizeof count)) {
      buffer.resize(count);
      if (readAll(connection, buffer.data(), count)) sendAll(connection, answer.data(), answer.size());
    }
    close(connection);
  }
}

void PlainSocket::exchange(const std::string& byte) const {
  const int connection = socket(AF_INET, SOCK_STREAM, 0);
  const int one = 1;
  setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
  const sockaddr_in there = point(address_);
  const std::uint64_t count = byte.size();
  std::string all(sizeof count, '\0');
  std::memcpy(all.data(), &count, sizeof count);
  all += byte;
  std::array<char, kAnswer> answer{};
  const bool done = connect(connection, reinterpret_cast<const sockaddr*>(&there), sizeof there) == 0 &&
                    sendAll(connection, all.data(), all.size()) &&
                    readAll(connection, answer.data(), answer.size());
  close(connection);
  if (!done) throw std::runtime_error("no answer");
}
