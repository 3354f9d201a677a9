#pragma once

#include <QByteArrayView>
#include <QString>

namespace rtf {

inline constexpr int kLastTitle = 6;

/// Whether a group that begins with this word holds no text of the page: fonts, pictures, margins' texts.
bool offPage(QByteArrayView name);
/// The character that a word stands for, 0 for none.
char16_t specialCharacter(QByteArrayView name);
/// 1 to 6 for the name of a heading's style, 0 for another's. Word processors name their headings in English
/// or in the user's tongue.
int levelOfName(const QString& name);

}  // namespace rtf
