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

/// A ground that was chosen for a light screen, as it is painted among `base` and under `text`. Among dark
/// ones it keeps its hue and goes down to where `text` can be read: white becomes `base`, a tint of white a
/// tint of `base`, a full colour a deep one. Where `base` is light, or `text` can be read on it already, it
/// stays.
QColor ground(const QColor& wanted, const QColor& base, const QColor& text);

}  // namespace contrast
