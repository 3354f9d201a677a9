#pragma once

#include <QByteArrayView>
#include <QString>

namespace rtf {

inline constexpr int kUltimoTitolo = 6;

/// Whether a group that begins with this word holds no text of the page: fonts, pictures, margins' texts.
bool fuoriPagina(QByteArrayView nome);
/// The character that a word stands for, 0 for none.
char16_t carattereSpeciale(QByteArrayView nome);
/// 1 to 6 for the name of a heading's style, 0 for another's. Word processors name their headings in English
/// or in the user's tongue.
int livelloDelNome(const QString& nome);

}  // namespace rtf
