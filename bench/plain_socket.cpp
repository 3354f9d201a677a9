#include "bench/plain_socket.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QScopeGuard>
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace {

constexpr std::uint16_t kPort = 17999;
constexpr std::size_t kCommand = 48;
constexpr std::size_t kName = 32;

/// Before every message and every answer.
struct Header {
  std::uint64_t count = 0;
  std::array<char, kName> name{};
};

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

void post(int connection, const std::string& name, const std::string& bytes) {
  Header header{.count = bytes.size()};
  std::ranges::copy(name, header.name.begin());
  std::string all(sizeof header, '\0');
  std::memcpy(all.data(), &header, sizeof header);
  all += bytes;
  if (!sendAll(connection, all.data(), all.size())) throw std::runtime_error("not sent");
}

std::string fetch(int connection, std::string& name) {
  Header header;
  if (!readAll(connection, &header, sizeof header)) throw std::runtime_error("no answer");
  name = header.name.data();
  std::string bytes(header.count, '\0');
  if (!readAll(connection, bytes.data(), bytes.size())) throw std::runtime_error("no answer");
  return bytes;
}

std::string stored(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY);
  struct stat about {};
  if (file < 0 || fstat(file, &about) != 0) throw std::runtime_error("not stored");
  std::string bytes(static_cast<std::size_t>(about.st_size), '\0');
  if (read(file, bytes.data(), bytes.size()) != about.st_size) throw std::runtime_error("not read");
  close(file);
  return bytes;
}

}  // namespace

void WriteRenamed(const std::string& path, const std::string& bytes, bool forced) {
  const std::string passing = path + ".nuovo";
  const int file = open(passing.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  if (write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
    throw std::runtime_error("not written");
  if (forced) fsync(file);
  close(file);
  if (rename(passing.c_str(), path.c_str()) != 0) throw std::runtime_error("not renamed");
  if (!forced) return;
  const int folder = open(".", O_RDONLY | O_DIRECTORY);
  fsync(folder);
  close(folder);
}

PlainSocket::PlainSocket(std::string address, std::string folder)
    : address_(std::move(address)), folder_(std::move(folder)), listener_(socket(AF_INET, SOCK_STREAM, 0)) {
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
  for (int connection = accept(listener_, nullptr, nullptr); connection >= 0;
       connection = accept(listener_, nullptr, nullptr)) {
    try {
      std::string name;
      const std::string bytes = fetch(connection, name);
      const std::string path = folder_ + "/" + name;
      if (!name.empty() && !bytes.empty()) WriteRenamed(path, bytes, false);
      post(connection, {}, !name.empty() && bytes.empty() ? stored(path) : "OK");
    } catch (const std::exception&) {
      // Whoever asked gets no answer, and tells.
    }
    close(connection);
  }
}

std::string PlainSocket::exchange(const std::string& name, const std::string& bytes) const {
  const int connection = socket(AF_INET, SOCK_STREAM, 0);
  const auto closed = qScopeGuard([&] { close(connection); });
  const int one = 1;
  setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
  const sockaddr_in there = point(address_);
  if (connect(connection, reinterpret_cast<const sockaddr*>(&there), sizeof there) != 0)
    throw std::runtime_error("not connected");
  post(connection, name, bytes);
  std::string none;
  return fetch(connection, none);
}

void PlainSocket::command() const {
  exchange({}, std::string(kCommand, 'c'));
}

void PlainSocket::send(const std::string& name, const std::string& bytes) const {
  exchange(name, bytes);
}

std::string PlainSocket::receive(const std::string& name) const {
  return exchange(name, {});
}
