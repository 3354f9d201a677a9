#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "ecrsim/memory.h"
#include "ecrsim/simulator.h"

namespace ecrsim {

/// What a command is answered with.
struct Reply {
  std::int16_t code = 0;
  std::vector<std::uint8_t> data;
};

/// The till itself, without its line: state, memory, the nine modes. One command at a time, whoever asks.
class Till {
 public:
  explicit Till(Options options);

  /// The fault that strikes this command, used up by one; nothing on a good day.
  std::optional<Fault> fault(int mode, const std::string& file);
  /// Notes and runs a command. `data`: the file of mode 6.
  Reply run(int mode, const std::string& file, ecrcom::Bytes data);
  /// Notes a command that is not run.
  void note(int mode, const std::string& file, std::size_t byte);
  /// The 39 bytes that tell the till's state to a key sequence.
  std::string stateRecord() const;

  std::vector<Call> calls() const;
  void forgetCalls();
  void state(char letter);
  void faults(std::vector<Fault> faults);
  void infoReply(std::string text);
  bool transferOpen() const;
  std::int64_t salesDay(int receipts, std::uint32_t seed);
  const Memory& memory() const { return memory_; }
  const std::string& address() const { return options_.address; }
  /// How long a frame may take once its first byte is there, and a reply to be taken.
  std::chrono::milliseconds wait() const { return options_.wait; }

 private:
  std::int16_t permission(int mode) const;
  Reply work(int mode, const std::string& file, ecrcom::Bytes data);
  Reply info() const;
  std::int16_t clearProgramming() const;
  std::int16_t takeFile(const std::string& file, ecrcom::Bytes data) const;
  Reply handOverFile(const std::string& file) const;

  mutable std::mutex mutex_;
  Options options_;
  Memory memory_;
  std::vector<Call> calls_;
  std::vector<Fault> faults_;
  bool open_ = false;
};

}  // namespace ecrsim
