#pragma once

#include <cstddef>
#include <string>
#include <thread>

/// `bytes` into a file by plain calls, under another name that then becomes `path`; forced to the disk or
/// not. Throws std::runtime_error.
void WriteRenamed(const std::string& path, const std::string& bytes, bool forced);

/// The barest exchange: a connection, so many bytes there, an answer back. What exchanging with the till is
/// measured against. The other side keeps what it is sent in its folder, as a till does.
class PlainSocket {
 public:
  PlainSocket(std::string address, std::string folder);
  ~PlainSocket();
  PlainSocket(const PlainSocket&) = delete;
  PlainSocket& operator=(const PlainSocket&) = delete;

  /// A command and its short answer. These three throw std::runtime_error if the answer does not come.
  void command() const;
  /// `bytes` into the other side's file `name`.
  void send(const std::string& name, const std::string& bytes) const;
  /// The bytes of the other side's file `name`.
  std::string receive(const std::string& name) const;

 private:
  void serve() const;
  std::string exchange(const std::string& name, const std::string& bytes) const;

  std::string address_;
  std::string folder_;
  int listener_ = -1;
  std::thread thread_;
};
