#pragma once

#include <QColor>

namespace contrasto {

/// What text needs to be read on its ground.
inline constexpr double kLeggibile = 4.5;

/// Ratio of the two colours' luminances, from 1 (the same) to 21 (black on white).
double fra(const QColor& uno, const QColor& altro);

/// `voluto` if it can be read on `fondo`, else the nearest lightness of its hue that can.
QColor leggibile(const QColor& voluto, const QColor& fondo);

/// The better of the two to be read on `fondo`.
QColor biancoONero(const QColor& fondo);

}  // namespace contrasto
