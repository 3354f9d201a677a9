#include "ecrsim/journal.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <system_error>
#include <utility>

#include "ecrcom/frame.h"
#include "ecrsim/money.h"

namespace ecrsim {
namespace {

namespace fs = std::filesystem;

// Head line: ">22/11/2026 10:15:33 F 000012 0003 00000412 9a3c55e1" and CR LF.
constexpr std::size_t kMomentPlace = 1;
constexpr std::size_t kMomentLength = 19;
constexpr std::size_t kKindPlace = 21;
constexpr std::size_t kNumberPlace = 23;
constexpr std::size_t kNumberLength = 6;
constexpr std::size_t kClosuresPlace = 30;
constexpr std::size_t kClosuresLength = 4;
constexpr std::size_t kBytePlace = 35;
constexpr std::size_t kByteLength = 8;
constexpr std::size_t kChecksumPlace = 44;
constexpr std::size_t kChecksumLength = 8;
constexpr std::size_t kHeadBytes = 54;
constexpr std::size_t kPieceBytes = 4096;

using HeadBytes = std::array<char, kHeadBytes>;

std::uint32_t checksum(std::uint32_t sum, std::string_view text) {
  return ecrcom::extendChecksum(sum, ecrcom::byteOf(text));
}

std::string headLine(const DocumentHead& head) {
  std::array<char, 128> text;
  std::snprintf(text.data(), text.size(), ">%s %c %06d %04d %08zu %08x\r\n", longText(head.when).c_str(),
                head.kind, head.number, head.closures, head.byte, head.checksum);
  return text.data();
}

/// What the checksum covers besides the body.
std::uint32_t headSum(const DocumentHead& head) {
  return checksum(0, headLine(head).substr(0, kChecksumPlace));
}

std::optional<std::uint32_t> hexadecimal(std::string_view text) {
  std::uint32_t value = 0;
  for (const char one : text) {
    const std::size_t digit = std::string_view("0123456789abcdef").find(one);
    if (digit == std::string_view::npos) return std::nullopt;
    value = value << 4U | static_cast<std::uint32_t>(digit);
  }
  return value;
}

std::optional<DocumentHead> parse(std::string_view line) {
  const auto when = momentOf(line.substr(kMomentPlace, kMomentLength));
  const auto number = integerOf(line.substr(kNumberPlace, kNumberLength), kNumberLength);
  const auto closures = integerOf(line.substr(kClosuresPlace, kClosuresLength), kClosuresLength);
  const auto byte = integerOf(line.substr(kBytePlace, kByteLength), kByteLength);
  const auto sum = hexadecimal(line.substr(kChecksumPlace, kChecksumLength));
  if (!when || !number || !closures || !byte || !sum) return std::nullopt;
  const DocumentHead head{*when,
                          line[kKindPlace],
                          static_cast<int>(*number),
                          static_cast<int>(*closures),
                          static_cast<std::size_t>(*byte),
                          *sum};
  if (headLine(head) != line) return std::nullopt;
  return head;
}

std::optional<DocumentHead> readHead(std::istream& input) {
  HeadBytes line;
  if (!input.read(line.data(), line.size())) return std::nullopt;
  return parse({line.data(), line.size()});
}

bool proveBody(std::istream& input, const DocumentHead& head) {
  std::uint32_t sum = headSum(head);
  std::array<char, kPieceBytes> piece;
  for (std::size_t rest = head.byte; rest > 0;) {
    const std::size_t count = std::min(rest, piece.size());
    if (!input.read(piece.data(), static_cast<std::streamsize>(count))) return false;
    sum = checksum(sum, {piece.data(), count});
    rest -= count;
  }
  return sum == head.checksum;
}

/// The file's length, nothing for what is no regular file.
std::optional<std::uint64_t> length(const fs::path& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (status.type() == fs::file_type::not_found) return 0;
  if (!fs::is_regular_file(status)) return std::nullopt;
  const std::uint64_t byte = fs::file_size(file, error);
  if (error) return std::nullopt;
  return byte;
}

/// Documents of a proven file, read again as they go out.
class JournalText : public LineText {
 public:
  JournalText(std::string title, const fs::path& file, std::uint64_t end, Journal::Wanted wanted)
      : title_(std::move(title)), input_(file, std::ios::binary), end_(end), wanted_(std::move(wanted)) {
    measure();
  }
  std::uint64_t size() const override { return size_; }
  std::size_t read(std::span<char> piece) override {
    std::size_t done = title_.read(piece);
    while (done < piece.size() && (rest_ > 0 || next())) done += body(piece.subspan(done));
    return done;
  }

 private:
  void measure() {
    size_ = title_.size();
    for (; next(); rest_ = 0) {
      size_ += rest_;
      input_.seekg(static_cast<std::streamoff>(rest_), std::ios::cur);
    }
    place_ = 0;
    input_.clear();
    input_.seekg(0);
  }
  /// Goes to the next document that is wanted.
  bool next() {
    while (place_ < end_) {
      const std::optional<DocumentHead> head = readHead(input_);
      if (!head) return false;
      place_ += kHeadBytes + head->byte;
      rest_ = head->byte;
      if (wanted_(*head)) return true;
      input_.seekg(static_cast<std::streamoff>(std::exchange(rest_, 0)), std::ios::cur);
    }
    return false;
  }
  std::size_t body(std::span<char> piece) {
    const std::size_t count = std::min(piece.size(), rest_);
    input_.read(piece.data(), static_cast<std::streamsize>(count));
    rest_ -= count;
    return count;
  }

  PlainText title_;
  std::ifstream input_;
  std::uint64_t end_;
  Journal::Wanted wanted_;
  std::uint64_t size_ = 0;
  std::uint64_t place_ = 0;
  std::size_t rest_ = 0;
};

}  // namespace

bool Journal::sound() {
  const std::optional<std::uint64_t> byte = length(file_);
  if (!byte) return false;
  if (*byte == proven_) return true;
  std::ifstream input(file_, std::ios::binary);
  for (std::uint64_t place = 0; place < *byte;) {
    const std::optional<DocumentHead> head = readHead(input);
    if (!head || !proveBody(input, *head)) return false;
    place += kHeadBytes + head->byte;
  }
  proven_ = *byte;
  return true;
}

void Journal::add(const Document& document) {
  std::string body;
  for (const std::string& line : document.lines) body += line + "\r\n";
  DocumentHead head = document.head;
  head.byte = body.size();
  head.checksum = checksum(headSum(head), body);
  waiting_ += headLine(head) + body;
}

bool Journal::write() {
  before_ = proven_;
  std::ofstream output(file_, std::ios::app | std::ios::binary);
  output << waiting_ << std::flush;
  if (output.good()) {
    proven_ += waiting_.size();
    waiting_.clear();
    return true;
  }
  output.close();
  undo();
  return false;
}

void Journal::undo() {
  waiting_.clear();
  std::error_code error;
  if (fs::exists(file_, error)) fs::resize_file(file_, before_, error);
  proven_ = before_;
}

std::unique_ptr<LineText> Journal::text(std::string title, Wanted wanted) {
  if (!sound()) return nullptr;
  return std::make_unique<JournalText>(std::move(title), file_, proven_, std::move(wanted));
}

}  // namespace ecrsim
