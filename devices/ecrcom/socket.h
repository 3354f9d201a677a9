#pragma once

#include <netinet/in.h>

#include <chrono>
#include <optional>
#include <span>
#include <string>

#include "ecrcom/frame.h"

/// Sockets with a deadline: every wait ends at a moment fixed beforehand, so that a peer which sends a byte
/// now and then cannot hold a caller.
namespace ecrcom {

using Clock = std::chrono::steady_clock;
using Deadline = Clock::time_point;

inline Deadline within(std::chrono::milliseconds wait) {
  return Clock::now() + wait;
}

enum class IoResult {
  Done,
  Expired,
  Refused,  ///< nobody listens there, or there is no way to it
  Cut,      ///< the peer has gone
  Garbage,
  Resources,  ///< no socket to be had
};

/// An open socket, closed with its owner. Non-blocking, without small-packet delay, closed on exec.
class Socket {
 public:
  Socket() = default;
  explicit Socket(int descriptor);
  ~Socket();
  Socket(Socket&& other) noexcept;
  Socket& operator=(Socket&& other) noexcept;
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  int descriptor() const { return descriptor_; }
  bool isOpen() const { return descriptor_ >= 0; }
  void close();
  /// Ends sending and reads away what still comes, until the peer has closed or `deadline`. Closing over
  /// unread bytes would reset the connection and lose the last reply on its way.
  void dismiss(Deadline deadline) const;

 private:
  int descriptor_ = -1;
};

/// Address of a dotted text, or nothing if it is no such text.
std::optional<in_addr> address(const std::string& text);
IoResult connect(in_addr address, Deadline deadline, Socket& connection);
IoResult dispatch(const Socket& connection, Bytes byte, Deadline deadline);
/// Fills `byte` whole. If `check`, garbage is told as soon as the first bytes are no frame's.
IoResult receive(const Socket& connection, std::span<std::uint8_t> byte, Deadline deadline,
                 bool check = false);
/// What has arrived, at most `byte`'s size; waits for the first byte.
IoResult receiveSome(const Socket& connection, std::span<std::uint8_t> byte, Deadline deadline,
                     std::size_t& count);
/// A whole frame, checksum proven.
IoResult receiveFrame(const Socket& connection, Deadline deadline, Frame& frame);
/// Data that follow a header already read; proves the checksum.
IoResult receiveData(const Socket& connection, const HeaderBytes& head, Deadline deadline, Frame& frame);
/// Waits for an event of poll(); for ever if there is no deadline.
IoResult awaitEvent(const Socket& connection, short event, std::optional<Deadline> deadline);

}  // namespace ecrcom
