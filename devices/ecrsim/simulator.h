#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "ecrsim/invoice.h"
#include "ecrsim/moment.h"
#include "ecrsim/paper.h"

/// A cash register that answers on the network, for tests (in process, a thread of its own) and for people
/// (the program `ecrsim`). Its memory is a folder: `plu.bin` sent to it is `plu.bin` there, and a
/// `venduto.bin` laid there is what it hands over.
namespace ecrsim {

/// What goes wrong, once a mode (and a file, if named) is asked for.
enum class FaultKind {
  Code,       ///< an error code in place of the work
  Silence,    ///< no answer at all
  CutBefore,  ///< the line is cut before the work is done
  CutWithin,  ///< the line is cut in the middle of the data: those sent to it, else those it answers with
  CutAfter,   ///< the work is done, the line is cut before the answer
  ShortFile,  ///< the file, or the reply, is handed over short; a file sent to it arrives short
  LongFile,   ///< the same, too long
  Garbage,    ///< bytes that are no frame
  // Of key sequences alone.
  Noise,      ///< other characters than those of the answer
  CutHead,    ///< a dump that breaks off in its first line
  CutMarker,  ///< a dump that breaks off within the characters that end it
};

/// What Fault::mode is for key sequences, beside the modes of commands, and what Fault::file is for those
/// that read the state and for dumps.
inline constexpr int kKeySequences = 9;
inline constexpr const char* kStateSequence = "stato";
inline constexpr const char* kDumpSequence = "dump";

struct Fault {
  int mode = 0;
  /// Empty: whatever the file.
  std::string file{};
  FaultKind what = FaultKind::Code;
  /// Error code for FaultKind::Code.
  int code = 7;
  /// How often it strikes; 0: always.
  int times = 0;
};

struct Options {
  /// A loopback address, 127.0.0.0/8.
  std::string address = "127.0.0.20";
  /// The till's memory, made if it is missing; empty: the current folder.
  std::filesystem::path folder{};
  /// Size class: "S", "L", or anything else.
  std::string bitmap = "L";
  /// State letter: I, P, V, A, L.
  char state = 'I';
  /// Receipts whose fiscal data are not closed: the programme is not taken before mode 8 has closed them.
  int fiscal = 0;
  std::string pattern = "KPR_80mm";
  std::string version = "3.00";
  std::string mmc = "4";
  /// If not empty, the text that mode 0 answers with, whatever the rest says.
  std::string infoReply{};
  std::vector<Fault> faults{};
  /// 'O' in order, 'T' head lifted, 'E' broken; paper 'O' there, anything else none.
  char printer = 'O';
  char paper = 'O';
  /// The till's clock; none: the PC's.
  TillClock clock{};
  /// Who sees paper and display; called from the till's threads, one at a time.
  Watcher watcher{};
  /// How long a frame may take once its first byte is there, and a reply to be taken.
  std::chrono::milliseconds wait{10000};
};

/// One command as the till understood it.
struct Call {
  int mode = 0;
  std::string file{};
  std::size_t byte = 0;
  bool operator==(const Call&) const = default;
};

class Simulator {
 public:
  /// Listens at once; throws std::system_error if it cannot.
  explicit Simulator(Options options);
  ~Simulator();
  Simulator(const Simulator&) = delete;
  Simulator& operator=(const Simulator&) = delete;

  /// All of these may be called from any thread.
  std::vector<Call> calls() const;
  void forgetCalls();
  void state(char letter);
  void faults(std::vector<Fault> faults);
  void infoReply(std::string text);
  /// Whether a transfer is open.
  bool transferOpen() const;
  /// Rings up `receipts` receipts of a day that the seed decides, over the articles of plu.bin, by the keys
  /// of the till: moves all that keys move. Returns the takings before discounts, in hundredths.
  /// Some of the receipts come with an invoice: see invoices().
  std::int64_t salesDay(int receipts, std::uint32_t seed);
  /// Rings up `count` receipts more, from 20.00 of the till's date, each with an invoice that the seed
  /// decides: to customers of clienti.bin, to codes without a record and to the anonymous one. Returns how
  /// many invoices fatture.bin took.
  int invoices(int count, std::uint32_t seed);
  /// Presses `keys`, a sale and its payment, and issues an invoice for it, which bears the amounts of the
  /// receipt and the moment of the till's clock. Returns its number, from 1: its place in fatture.bin. 0 if
  /// none was issued: the order or a key is refused (the error lamp is lit) or the archive is full, which
  /// only the journal tells.
  int issueInvoice(const InvoiceOrder& order, const std::string& keys);
  /// What a key sequence prints to the line; empty for one that prints nothing or is not understood.
  std::string press(const std::string& sequence);
  /// Whether the error lamp is lit.
  bool error() const;
  /// Closes the fiscal day if a receipt was printed since the last closure. False if it could not.
  bool closeDay();
  /// Opens a serial line as well, a pseudo-terminal with a link to it; throws std::system_error.
  void openSerial(const std::string& link);
  const std::filesystem::path& folder() const;
  const std::string& address() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace ecrsim
