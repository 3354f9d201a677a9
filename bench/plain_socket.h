#pragma once

#include <cstddef>
#include <string>
#include <thread>

/// The barest exchange: a connection, so many bytes there, a short answer back. What sending to the till is
/// measured against.
class PlainSocket {
 public:
  explicit PlainSocket(std::string address);
  ~PlainSocket();
  PlainSocket(const PlainSocket&) = delete;
  PlainSocket& operator=(const PlainSocket&) = delete;

  /// Throws std::runtime_error if the answer does not come.
  void exchange(const std::string& byte) const;

 private:
  void serve() const;

  std::string address_;
  int listener_ = -1;
  std::thread thread_;
};
