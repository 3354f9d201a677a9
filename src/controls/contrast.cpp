#include "controls/contrast.h"

#include <algorithm>
#include <cmath>

namespace contrast {

namespace {

constexpr float kStep = 0.05F;
constexpr int kSteps = 100;
constexpr float kLeastTint = 0.4F;
/// What the usual text needs on a ground that has been darkened: coloured texts have to find room there too.
constexpr double kDeep = 7;

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& c) {
  return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

/// How far apart the channels of a colour lie at full saturation.
float span(float lightness) {
  return 1 - std::abs(2 * lightness - 1);
}

/// A colour of the hue of `of` and, as far as the lightness has room for it, its strength. A tint of white is
/// told from white by less than what tells one dark ground from another.
QColor atLightness(const QColor& of, float lightness) {
  const float tint = std::min(span(of.lightnessF()) + kLeastTint, 1.0F);
  const float strength = of.hslSaturationF() * span(of.lightnessF()) * tint;
  const float room = span(lightness);
  const float saturation = room > 0 ? std::min(strength / room, 1.0F) : 0;
  return QColor::fromHslF(std::max(of.hslHueF(), 0.0F), saturation, lightness).toRgb();
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

QColor ground(const QColor& wanted, const QColor& base, const QColor& text) {
  if (luminance(base) >= luminance(text) || between(text, wanted) >= kReadable) return wanted;
  const float darkest = base.lightnessF();
  const float room = (1 - wanted.lightnessF()) * (1 - darkest);
  for (int step = 0; step < kSteps && room > 0; ++step) {
    const QColor tried = atLightness(wanted, darkest + room * static_cast<float>(kSteps - step) / kSteps);
    if (between(text, tried) >= kDeep) return tried;
  }
  const QColor deepest = atLightness(wanted, darkest);
  return wanted.hslHue() >= 0 && between(text, deepest) >= kReadable ? deepest : base;
}

}  // namespace contrast
