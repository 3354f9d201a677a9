#include "sales/progress.h"

#include <QProgressBar>

namespace {
constexpr qint64 kIntervallo = 40;  // milliseconds
}

Avanzamento::Avanzamento(QProgressBar& barra) : barra_(barra) {
  barra_.setUpdatesEnabled(false);
  dallUltima_.start();
}

Avanzamento::~Avanzamento() {
  barra_.setUpdatesEnabled(true);
}

void Avanzamento::a(int valore) {
  barra_.setValue(valore);
  if (dallUltima_.elapsed() < kIntervallo) return;
  barra_.setUpdatesEnabled(true);
  barra_.repaint();
  barra_.setUpdatesEnabled(false);
  dallUltima_.restart();
}
