#pragma once

#include "ecrcom/socket.h"
#include "ecrsim/till.h"

namespace ecrsim {

/// One connection from its first frame to its end, faults included.
class Conversation {
 public:
  /// `buffer` is where data arrive, for the caller to keep from one connection to the next.
  Conversation(const ecrcom::Socket& connection, Till& till, std::vector<std::uint8_t>& buffer)
      : socket_(connection), till_(till), buffer_(buffer) {}

  /// Serves frame after frame until the peer goes, sends what is no frame, or a fault cuts the line.
  void run();

 private:
  bool serve();
  bool serve(const ecrcom::HeaderBytes& head, ecrcom::Frame& frame);
  bool command(const ecrcom::HeaderBytes& head, ecrcom::Frame& frame);
  bool spoil(const Fault& fault, const ecrcom::HeaderBytes& head, ecrcom::Frame& frame);
  bool spoilData(const Fault& fault, ecrcom::Frame& frame);
  bool keys(const std::string& sequence);
  bool spoilKeys(const Fault& fault, const std::string& sequence);
  bool print(const KeyResult& result) const;
  bool print(const LineAnswer& answer) const;
  bool printEnd(std::string_view block, const std::string& marker) const;
  bool sendBlock(std::string_view block) const;
  bool answer(std::uint8_t mode, const Reply& reply) const;
  bool send(ecrcom::Bytes byte) const;
  bool complete(const ecrcom::HeaderBytes& head, ecrcom::Frame& frame) const;
  bool gather(std::size_t length, std::vector<std::uint8_t>& data, std::uint32_t& checksum) const;
  void awaitEnd() const;

  const ecrcom::Socket& socket_;
  Till& till_;
  std::vector<std::uint8_t>& buffer_;
  /// Of the frame that is coming in.
  ecrcom::Deadline deadline_{};
  bool keysOpen_ = false;
};

}  // namespace ecrsim
