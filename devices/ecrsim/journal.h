#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ecrsim/line_text.h"
#include "ecrsim/moment.h"

namespace ecrsim {

/// Kinds of documents: a fiscal receipt, a fiscal closure, anything else.
inline constexpr char kFiscalReceipt = 'F';
inline constexpr char kFiscalClosure = 'Z';
inline constexpr char kManagement = 'G';

struct DocumentHead {
  Moment when{};
  char kind = kManagement;
  /// Of the receipt since the last closure, or of the closure.
  int number = 0;
  /// Closures before it.
  int closures = 0;
  std::size_t byte = 0;
  std::uint32_t checksum = 0;
};

/// A document as it was printed.
struct Document {
  DocumentHead head{};
  std::vector<std::string> lines{};
};

/// The electronic journal: a text file that only grows, one head line before each document, which tells its
/// moment, kind, numbers, length and checksum. It is proven whole before it is read or written, in memory
/// that does not grow with it.
class Journal {
 public:
  using Wanted = std::function<bool(const DocumentHead&)>;

  explicit Journal(std::filesystem::path file) : file_(std::move(file)) {}

  /// Whether every document in the file is whole, or there is no file yet.
  bool sound();
  /// Takes documents in; they reach the file with the next write().
  void add(const Document& document);
  /// Writes what was taken in behind the end. If it cannot, the file is as before, and false.
  bool write();
  /// Forgets what was taken in, or what the last write() wrote.
  void undo();
  /// `title`, then the documents that are wanted. Nothing if the journal is not sound.
  std::unique_ptr<LineText> text(std::string title, Wanted wanted);

 private:
  std::filesystem::path file_;
  /// What has been proven: no more than that is read.
  std::uint64_t proven_ = 0;
  std::uint64_t before_ = 0;
  std::string waiting_;
};

}  // namespace ecrsim
