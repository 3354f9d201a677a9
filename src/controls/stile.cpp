#include "controls/stile.h"

namespace stile {

namespace {
QString& icone() {
  static QString cartella;
  return cartella;
}
}  // namespace

void cartellaIcone(const QString& cartella) { icone() = cartella; }

}  // namespace stile
