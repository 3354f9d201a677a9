#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "ecrsim/paper.h"

namespace ecrsim {

/// Shows paper and display to a person, in UTF-8, line by line as they change.
Watcher video(std::FILE* output);
/// Windows-1252 as UTF-8.
std::string utf8Of(std::string_view text);

}  // namespace ecrsim
