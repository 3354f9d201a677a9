#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "ecrcom/socket.h"

/// A till that only knows how to dump: it lets itself be connected to, and answers every key sequence with
/// the same stream, a block a frame. It keeps no more of it than two blocks.
class DumpTill {
 public:
  /// Of a block as it stands in the dump file.
  static constexpr std::size_t kBlock = 1024;
  static constexpr std::size_t kMarker = 46;

  /// The stream has `blocks` blocks, the marker at the end of the last one.
  DumpTill(const std::string& address, std::size_t blocks);
  ~DumpTill();
  DumpTill(const DumpTill&) = delete;
  DumpTill& operator=(const DumpTill&) = delete;

  /// The same stream by plain calls: every block that comes in goes into `file` as it comes. Throws
  /// std::runtime_error.
  void copyInto(const std::string& file) const;

 private:
  void serve();
  void talk(const ecrcom::Socket& connection) const;
  bool obey(const ecrcom::Socket& connection, const ecrcom::Frame& command) const;
  bool print(const ecrcom::Socket& connection) const;

  std::string address_;
  std::size_t blocks_;
  /// As they go over the line.
  std::vector<std::uint8_t> block_;
  std::vector<std::uint8_t> last_;
  ecrcom::Socket listener_;
  std::thread thread_;
};
