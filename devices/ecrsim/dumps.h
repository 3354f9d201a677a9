#pragma once

#include "ecrsim/books.h"
#include "ecrsim/key_parser.h"
#include "ecrsim/line_text.h"

namespace ecrsim {

/// What ends a dump.
inline constexpr std::size_t kMarkerLength = 46;
inline constexpr char kMarkerCharacter = '@';

/// The functions behind X that print the journal or the fiscal memory to the line:
/// "YYMMDDYYMMDD"10F and 12F by dates, "YYMMDDnnnnnmmmmm"11F the receipts of a day by numbers,
/// "nnnnnmmmmm"13F the closures by numbers. Throws Refusal for another function or argument, and for a memory
/// that is damaged.
LineAnswer dump(const Stroke& stroke, Books& books);
/// The command as it was typed, to give it back.
std::string commandOf(const Stroke& stroke);

}  // namespace ecrsim
