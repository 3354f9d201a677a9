#include "devices/fake_till.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <utility>

#include "sostegno/test_till.h"

namespace {

constexpr int kTail = 8;
constexpr std::chrono::seconds kLimit{30};

}  // namespace

ecrcom::Socket inListener(const QString& address, int tail) {
  ecrcom::Socket connection(socket(AF_INET, SOCK_STREAM, 0));
  const int yes = 1;
  setsockopt(connection.descriptor(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  sockaddr_in where{};
  where.sin_family = AF_INET;
  where.sin_port = htons(ecrcom::kPort);
  where.sin_addr = *ecrcom::address(address.toStdString());
  EXPECT_EQ(bind(connection.descriptor(), reinterpret_cast<sockaddr*>(&where), sizeof where), 0);
  EXPECT_EQ(listen(connection.descriptor(), tail), 0);
  return connection;
}

void waitClosing(const ecrcom::Socket& connection) {
  std::array<std::uint8_t, 4096> rest;
  std::size_t count = 0;
  while (ecrcom::receiveSome(connection, rest, ecrcom::within(kLimit), count) == ecrcom::IoResult::Done)
    continue;
}

FintaTill::FintaTill(std::function<void(const ecrcom::Socket&)> tratta)
    : address_(ownAddress()),
      tratta_(std::move(tratta)),
      listener_(inListener(address_, kTail)),
      thread_([this] { serve(); }) {}

FintaTill::~FintaTill() {
  shutdown(listener_.descriptor(), SHUT_RDWR);
  thread_.join();
}

void FintaTill::serve() {
  while (ecrcom::awaitEvent(listener_, POLLIN, std::nullopt) == ecrcom::IoResult::Done) {
    const ecrcom::Socket connection(accept(listener_.descriptor(), nullptr, nullptr));
    if (!connection.isOpen()) return;
    tratta_(connection);
  }
}
