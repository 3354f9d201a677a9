#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "check.h"
#include "ecrsim/dumps.h"
#include "ecrsim/machine.h"

namespace {

using namespace ecrsim;

constexpr std::size_t kPiece = 1024;
constexpr std::size_t kPlu = 48;
constexpr std::size_t kPrice = 27;
constexpr std::size_t kFlags = 26;

/// Gone with the program.
struct Folder {
  Folder() = default;
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }

  std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("keys_fuzz-" + std::to_string(::getpid()));
};

/// A till with ten articles, in a folder that is emptied for each input.
std::filesystem::path emptyFolder() {
  static const Folder folder;
  std::filesystem::remove_all(folder.path);
  return folder.path;
}

void layArticles(const Memory& memory) {
  std::vector<std::uint8_t> articles(10 * kPlu);
  for (std::size_t i = 0; i < 10; ++i) {
    articles[i * kPlu] = 'A';
    articles[i * kPlu + kFlags] = static_cast<std::uint8_t>(i % 4);
    articles[i * kPlu + kPrice] = static_cast<std::uint8_t>(17 * i);
  }
  check(memory.write("plu.bin", articles) == 0);
}

std::string textOf(LineAnswer& answer) {
  std::string all;
  std::array<char, kPiece> piece;
  for (std::size_t count = kPiece; count == kPiece; all.append(piece.data(), count))
    count = answer.text->read(piece);
  check(all.size() == answer.text->size());
  return all;
}

void answersAreWhole(std::vector<LineAnswer>& answers) {
  for (LineAnswer& one : answers) {
    const std::string text = textOf(one);
    if (one.what == LineAnswer::What::State) check(text.size() == kStateRecordBytes);
    if (one.what == LineAnswer::What::Dump) check(one.marker == std::string(kMarkerLength, kMarkerCharacter));
  }
}

}  // namespace

/// Any keys at all: the lamp goes on and off, never the till down. Once "c" has put it out and what was open
/// is paid, another receipt can be rung up, and what was kept can be read by another till.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
  const Memory memory(emptyFolder());
  layArticles(memory);
  const TillClock clock = [] { return Moment{2026, 11, 22, 10, 15, 33}; };
  Machine till(memory, 'I', "4", clock, {});
  std::vector<LineAnswer> answers;
  till.type(textOf(data, length), answers);
  check(!till.memoryFailed());
  answersAreWhole(answers);
  answers.clear();
  till.type("c", answers);
  if (till.state() == 'V') till.type("1Tc12McJc1Tc", answers);
  check(!till.error() && till.state() == 'I');
  const auto before = till.receipts();
  till.type("100H1R1T", answers);
  check(!till.error() && till.receipts() == before + 1);
  Machine again(memory, 'I', "4", clock, {});
  check(again.desk().books().sound());
  check(again.receipts() == till.receipts());
  return 0;
}
