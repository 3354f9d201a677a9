#pragma once

#include <QString>

/// Values of a statement that another is compared with: each stands for any value of its kind.
inline const QString kAnyText = QStringLiteral("\u00A7");
inline constexpr int kAnyNumber = 7777;

/// Whether a statement has the tokens of a pattern, one for one, but for the values. A number may bear a
/// sign; `true` and `false` stand for each other. False for a statement that cannot be cut into tokens.
bool sameShape(const QString& statement, const QString& pattern);
