#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ecrsim {

/// Characters in a line of the till's paper, and in each of the two lines of its display.
inline constexpr std::size_t kPaperWidth = 40;
inline constexpr std::size_t kDisplayWidth = 20;

/// `left` and, at the right edge, `right`; what is too long is cut on the left side. Control characters,
/// which a programme of foreign bytes may hold, print as "?".
std::string row(std::string_view left, std::string_view right, std::size_t width = kPaperWidth);
std::string centred(std::string_view text);

/// Told of each line as it is printed, and of both display lines as they change. Windows-1252.
struct Watcher {
  std::function<void(const std::string&)> paper{};
  std::function<void(const std::string&, const std::string&)> display{};
};

/// The roll of paper: lines come out as they are printed, those of the document that is open are kept.
class Paper {
 public:
  explicit Paper(std::function<void(const std::string&)> watcher) : watcher_(std::move(watcher)) {}

  void print(const std::string& line);
  const std::vector<std::string>& document() const { return document_; }
  void endDocument() { document_.clear(); }

 private:
  std::function<void(const std::string&)> watcher_;
  std::vector<std::string> document_;
};

}  // namespace ecrsim
