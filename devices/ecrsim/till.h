#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "ecrsim/line_text.h"
#include "ecrsim/machine.h"
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

  /// A key sequence from its first key to its last. Control characters are refused whole.
  KeyResult press(std::string_view sequence);
  /// One stroke of a line that has no sequences, only keys.
  KeyResult press(const Stroke& stroke);
  /// The keys of such a line have come to rest; whether something waits for that.
  void pause();
  bool waits() const;
  bool error() const;
  bool closeDay();

  std::vector<Call> calls() const;
  void forgetCalls();
  void state(char letter);
  void faults(std::vector<Fault> faults);
  void infoReply(std::string text);
  bool transferOpen() const;
  std::int64_t salesDay(int receipts, std::uint32_t seed);
  int invoices(int count, std::uint32_t seed);
  int issueInvoice(InvoiceOrder order, std::string_view keys);
  const Memory& memory() const { return memory_; }
  const std::string& address() const { return options_.address; }
  /// How long a frame may take once its first byte is there, and a reply to be taken.
  std::chrono::milliseconds wait() const { return options_.wait; }

 private:
  std::int16_t permission(int mode) const;
  std::int16_t closeFiscalDay();
  std::int64_t openReceipts() const { return options_.fiscal + machine_.receipts(); }
  KeyResult resultOf(std::vector<LineAnswer> answers);
  Reply work(int mode, const std::string& file, ecrcom::Bytes data);
  Reply info() const;
  std::int16_t clearProgramming() const;
  std::int16_t takeFile(const std::string& file, ecrcom::Bytes data) const;
  std::int16_t takePictures(ecrcom::Bytes data) const;
  Reply handOverFile(const std::string& file) const;

  mutable std::mutex mutex_;
  Options options_;
  Memory memory_;
  Machine machine_;
  std::vector<Call> calls_;
  std::vector<Fault> faults_;
  bool open_ = false;
};

}  // namespace ecrsim
