#include "controls/contrasto.h"

#include <algorithm>
#include <cmath>

namespace contrasto {

namespace {

constexpr float kPasso = 0.05F;

double lineare(double canale) {
  return canale <= 0.04045 ? canale / 12.92 : std::pow((canale + 0.055) / 1.055, 2.4);
}

double luminanza(const QColor& c) {
  return 0.2126 * lineare(c.redF()) + 0.7152 * lineare(c.greenF()) + 0.0722 * lineare(c.blueF());
}

}  // namespace

double fra(const QColor& uno, const QColor& altro) {
  const double a = luminanza(uno);
  const double b = luminanza(altro);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor biancoONero(const QColor& fondo) {
  return fra(Qt::white, fondo) > fra(Qt::black, fondo) ? Qt::white : Qt::black;
}

QColor leggibile(const QColor& voluto, const QColor& fondo) {
  if (fra(voluto, fondo) >= kLeggibile) return voluto;
  const QColor estremo = biancoONero(fondo);
  const float passo = estremo == QColor(Qt::white) ? kPasso : -kPasso;
  float luce = voluto.lightnessF() + passo;
  for (; luce > 0 && luce < 1; luce += passo) {
    const QColor prova = QColor::fromHslF(std::max(voluto.hslHueF(), 0.0F), voluto.hslSaturationF(), luce);
    if (fra(prova, fondo) >= kLeggibile) return prova.toRgb();
  }
  return estremo;
}

}  // namespace contrasto
