#include "bench/dump_till.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QScopeGuard>
#include <array>
#include <stdexcept>

#include "ecrcom/frame.h"

namespace {

using ecrcom::Frame;
using ecrcom::FrameType;
using ecrcom::Header;
using ecrcom::IoResult;
using ecrcom::Socket;

constexpr std::chrono::seconds kWait{60};
constexpr const char* kInfo =
    "VSW=3.00,BMP=L,MMC=4,A=,B=,C=,D=,E=,F=,G=,STATO=I,MOD=KPR_80mm,H=,I=,L=,M=,FISC=0,N=,O=";
constexpr const char* kLine = "11/03/2024 10:15  SCONTRINO 0042\r\nREPARTO 01                 12,34\r\n";

/// As much of a printed journal as goes into a block.
std::string text(std::size_t count) {
  std::string all;
  while (all.size() < count) all += kLine;
  return all.substr(0, count);
}

std::vector<std::uint8_t> frame(FrameType kind, std::uint8_t mode, const std::string& data) {
  Header head;
  head.kind = kind;
  head.mode = mode;
  return ecrcom::compose(head, ecrcom::byteOf(data));
}

bool send(const Socket& connection, const std::vector<std::uint8_t>& byte) {
  return ecrcom::dispatch(connection, byte, ecrcom::within(kWait)) == IoResult::Done;
}

sockaddr_in point(const std::string& address) {
  sockaddr_in here{};
  here.sin_family = AF_INET;
  here.sin_port = htons(ecrcom::kPort);
  here.sin_addr = ecrcom::address(address).value();
  return here;
}

/// A command by plain calls, and its answer without data.
void exchange(int connection, FrameType kind, const std::string& keys) {
  const std::vector<std::uint8_t> command = frame(kind, 0, keys);
  std::array<char, ecrcom::kHeaderBytes> answer;
  if (::send(connection, command.data(), command.size(), MSG_NOSIGNAL) !=
          static_cast<ssize_t>(command.size()) ||
      recv(connection, answer.data(), answer.size(), MSG_WAITALL) != static_cast<ssize_t>(answer.size()))
    throw std::runtime_error("no answer");
}

}  // namespace

DumpTill::DumpTill(const std::string& address, std::size_t blocks)
    : address_(address),
      blocks_(blocks),
      block_(frame(FrameType::KeysReply, 0, text(kBlock))),
      last_(frame(FrameType::KeysReply, 0, text(kBlock - kMarker) + std::string(kMarker, '@'))),
      listener_(socket(AF_INET, SOCK_STREAM, 0)) {
  const int one = 1;
  setsockopt(listener_.descriptor(), SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
  const sockaddr_in here = point(address_);
  if (bind(listener_.descriptor(), reinterpret_cast<const sockaddr*>(&here), sizeof here) != 0 ||
      listen(listener_.descriptor(), 8) != 0)
    throw std::runtime_error("cannot listen");
  thread_ = std::thread([this] { serve(); });
}

DumpTill::~DumpTill() {
  shutdown(listener_.descriptor(), SHUT_RDWR);
  thread_.join();
}

/// One connection after the other: who dumps has one open at a time.
void DumpTill::serve() {
  while (ecrcom::awaitEvent(listener_, POLLIN, std::nullopt) == IoResult::Done) {
    const int descriptor = accept(listener_.descriptor(), nullptr, nullptr);
    if (descriptor < 0) return;
    talk(Socket(descriptor));
  }
}

void DumpTill::talk(const Socket& connection) const {
  Frame command;
  while (ecrcom::receiveFrame(connection, ecrcom::within(kWait), command) == IoResult::Done)
    if (!obey(connection, command)) return;
}

bool DumpTill::obey(const Socket& connection, const Frame& command) const {
  const Header& head = command.header;
  if (head.kind == FrameType::Command)
    return send(connection, frame(FrameType::Reply, head.mode, head.mode == 0 ? kInfo : ""));
  if (!send(connection, frame(FrameType::Reply, 0, ""))) return false;
  return head.kind != FrameType::Keys || print(connection);
}

bool DumpTill::print(const Socket& connection) const {
  for (std::size_t block = 1; block < blocks_; ++block)
    if (!send(connection, block_)) return false;
  return send(connection, last_);
}

void DumpTill::copyInto(const std::string& file) const {
  const int connection = socket(AF_INET, SOCK_STREAM, 0);
  const int copy = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND, 0644);
  const auto closed = qScopeGuard([&] {
    close(connection);
    close(copy);
  });
  const sockaddr_in there = point(address_);
  if (copy < 0 || connect(connection, reinterpret_cast<const sockaddr*>(&there), sizeof there) != 0)
    throw std::runtime_error("not connected");
  exchange(connection, FrameType::OpenKeys, {});
  exchange(connection, FrameType::Keys, "X\"000101991201\"10F");
  std::array<char, ecrcom::kHeaderBytes + kBlock> piece;
  for (std::size_t block = 0; block < blocks_; ++block) {
    if (recv(connection, piece.data(), piece.size(), MSG_WAITALL) != static_cast<ssize_t>(piece.size()))
      throw std::runtime_error("cut");
    if (write(copy, piece.data() + ecrcom::kHeaderBytes, kBlock) != static_cast<ssize_t>(kBlock))
      throw std::runtime_error("not written");
  }
}
