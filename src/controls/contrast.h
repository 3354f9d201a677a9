#pragma once

#include <QColor>

namespace contrast {

/// What text needs to be read on its ground.
inline constexpr double kReadable = 4.5;

/// Ratio of the two colours' luminances, from 1 (the same) to 21 (black on white).
double between(const QColor& one, const QColor& other);

/// `wanted` if it can be read on `ground`, else the nearest lightness of its hue that can.
QColor readable(const QColor& wanted, const QColor& ground);

/// The better of the two to be read on `ground`.
QColor whiteOrBlack(const QColor& ground);

}  // namespace contrast
