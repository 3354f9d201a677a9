#include "controls/steady_progress.h"

#include <QProgressBar>

namespace {
constexpr qint64 kInterval = 40;  // milliseconds
}

SteadyProgress::SteadyProgress(QProgressBar& bar) : bar_(bar) {
  bar_.setUpdatesEnabled(false);
  sinceLast_.start();
}

SteadyProgress::~SteadyProgress() {
  bar_.setUpdatesEnabled(true);
}

void SteadyProgress::to(int value) {
  bar_.setValue(value);
  if (sinceLast_.elapsed() < kInterval) return;
  bar_.setUpdatesEnabled(true);
  bar_.repaint();
  bar_.setUpdatesEnabled(false);
  sinceLast_.restart();
}
