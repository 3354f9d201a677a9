#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace ecrsim {

/// A text on its way to the line, of any length, handed out piece by piece.
class LineText {
 public:
  LineText() = default;
  virtual ~LineText() = default;
  LineText(const LineText&) = delete;
  LineText& operator=(const LineText&) = delete;

  virtual std::uint64_t size() const = 0;
  /// Fills `piece` as far as the text goes; fewer bytes only at its end.
  virtual std::size_t read(std::span<char> piece) = 0;
};

class PlainText : public LineText {
 public:
  explicit PlainText(std::string text) : text_(std::move(text)) {}
  std::uint64_t size() const override { return text_.size(); }
  std::size_t read(std::span<char> piece) override {
    const std::size_t count = std::min(piece.size(), text_.size() - place_);
    std::copy_n(text_.begin() + static_cast<std::ptrdiff_t>(place_), count, piece.begin());
    place_ += count;
    return count;
  }

 private:
  std::string text_;
  std::size_t place_ = 0;
};

/// What one command behind X answers over the line.
struct LineAnswer {
  enum class What { State, Dump };

  What what = What::State;
  /// The command as it came: the serial line gives it back first.
  std::string command;
  std::unique_ptr<LineText> text;
  /// Behind a dump, whole at the end of a block.
  std::string marker{};
  /// The rest of `text` and the marker never come: a fault.
  bool cut = false;
};

/// What a key sequence answers: a code of ecrcom/codes.h, and what its commands print to the line.
struct KeyResult {
  std::int16_t code = 0;
  std::vector<LineAnswer> answers{};
};

}  // namespace ecrsim
