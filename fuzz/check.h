#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

/// What a fuzzer takes for certain: the fuzzer tells the input for which it is not so.
inline void check(bool holds) {
  if (!holds) std::abort();
}

/// The fuzzer's bytes as text.
inline std::string_view textOf(const std::uint8_t* data, std::size_t count) {
  return {static_cast<const char*>(static_cast<const void*>(data)), count};
}
