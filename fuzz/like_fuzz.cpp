// Patterns of the searches: the range that stands in front of a pattern must lose no row that the pattern
// takes.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/store/date_time.h"
#include "platform/store/keywords.h"
#include "platform/store/like_pattern.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
  const std::string_view all(static_cast<const char*>(static_cast<const void*>(data)), count);
  const std::size_t cut = all.find('\n');
  const std::string_view pattern = all.substr(0, cut);
  const std::string_view text = cut == std::string_view::npos ? std::string_view() : all.substr(cut + 1);
  const std::string_view prefix = store::FixedPrefix(pattern);
  const bool preso = store::MatchesPattern(pattern, text);
  if (preso && !store::EqualCaseless(text.substr(0, prefix.size()), prefix)) std::abort();
  if (const auto moment = store::ReadDateTime(text)) {
    if (store::SortableForm(*store::ReadDateTime(store::ItalianForm(*moment))) !=
        store::SortableForm(*moment))
      std::abort();
  }
  return 0;
}
