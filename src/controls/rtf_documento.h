#pragma once

#include "controls/rtf_testo.h"

class QTextDocument;

namespace rtf {

/// Lays a text out in `documento`, in place of what that holds. Sizes follow its default font. Throws Errore
/// 321 for tables beyond what a help text needs; the document is untouched then.
void scrivi(const Testo& testo, QTextDocument& documento);

}  // namespace rtf
