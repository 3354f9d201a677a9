#pragma once

#include "controls/rtf_text.h"

class QTextDocument;

namespace rtf {

/// Lays a text out in `document`, in place of what that holds. Sizes follow its default font. Throws Errore
/// 321 for tables beyond what a help text needs; the document is untouched then.
void write(const Text& text, QTextDocument& document);

}  // namespace rtf
