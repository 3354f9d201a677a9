#pragma once

#include <QByteArray>

class QTextDocument;

/// Rich text as word processors write it, read into a document: paragraphs and headings, bullets and numbers,
/// bold, italic and underlined text in its relative sizes, tables. Colours, fonts and pictures are left out:
/// the text is shown in the program's own, in its light and dark look.
namespace rtf {

/// The longest text, in bytes, that is read.
inline constexpr qsizetype kMaxBytes = qsizetype{16} * 1024 * 1024;

/// Replaces what `document` holds. Sizes follow the document's default font. Throws Errore 321 for what is
/// no rich text, ends half-way or goes beyond what a help text needs; the document is untouched then.
void read(const QByteArray& byte, QTextDocument& document);

}  // namespace rtf
