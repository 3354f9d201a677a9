#include "ecrsim/video.h"

#include <array>

namespace ecrsim {
namespace {

constexpr unsigned kFirstSpecial = 0x80;
/// Where Windows-1252 differs from the characters of the same number.
constexpr std::array<unsigned, 32> kSpecials{0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                             0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void append(std::string& text, unsigned code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0U | code >> 6U);
    text += static_cast<char>(0x80U | (code & 0x3FU));
  } else {
    text += static_cast<char>(0xE0U | code >> 12U);
    text += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
    text += static_cast<char>(0x80U | (code & 0x3FU));
  }
}

}  // namespace

std::string utf8Of(std::string_view text) {
  std::string result;
  for (const char one : text) {
    const unsigned code = static_cast<unsigned char>(one);
    const bool special = code >= kFirstSpecial && code < kFirstSpecial + kSpecials.size();
    append(result, special ? kSpecials[code - kFirstSpecial] : code);
  }
  return result;
}

Watcher video(std::FILE* output) {
  const auto show = [output](const std::string& text) {
    std::fprintf(output, "%s\n", utf8Of(text).c_str());
    std::fflush(output);
  };
  return {[show](const std::string& line) { show("  | " + line); },
          [show](const std::string& upper, const std::string& lower) {
            show("[" + upper + "]\n[" + lower + "]");
          }};
}

}  // namespace ecrsim
