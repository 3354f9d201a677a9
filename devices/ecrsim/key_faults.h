#pragma once

#include <string>
#include <string_view>

#include "ecrsim/key_parser.h"
#include "ecrsim/line_text.h"
#include "ecrsim/simulator.h"

namespace ecrsim {

/// What a fault calls a sequence by: kStateSequence, kDumpSequence, or empty for one that prints nothing to
/// the line.
std::string faultNameOf(std::string_view sequence);
std::string faultNameOf(const Stroke& stroke);
/// Whether a fault of this kind lets the till answer, wrongly.
bool spoilsAnswer(FaultKind kind);
/// Makes an answer wrong in the way of that kind.
void spoil(LineAnswer& answer, FaultKind kind);

}  // namespace ecrsim
