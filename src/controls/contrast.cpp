#include "controls/contrast.h"

#include <algorithm>
#include <cmath>

namespace contrast {

namespace {

constexpr float kStep = 0.05F;

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& c) {
  return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

}  // namespace

double between(const QColor& one, const QColor& other) {
  const double a = luminance(one);
  const double b = luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor whiteOrBlack(const QColor& ground) {
  return between(Qt::white, ground) > between(Qt::black, ground) ? Qt::white : Qt::black;
}

QColor readable(const QColor& wanted, const QColor& ground) {
  if (between(wanted, ground) >= kReadable) return wanted;
  const QColor end = whiteOrBlack(ground);
  const float step = end == QColor(Qt::white) ? kStep : -kStep;
  float lightness = wanted.lightnessF() + step;
  for (; lightness > 0 && lightness < 1; lightness += step) {
    const QColor tried =
        QColor::fromHslF(std::max(wanted.hslHueF(), 0.0F), wanted.hslSaturationF(), lightness);
    if (between(tried, ground) >= kReadable) return tried.toRgb();
  }
  return end;
}

}  // namespace contrast
