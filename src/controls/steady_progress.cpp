#include "controls/steady_progress.h"

#include <QProgressBar>

namespace {
constexpr qint64 kInterval = 40;  // milliseconds
}

void beginProgress(QProgressBar& bar, int steps, const QString& format) {
  bar.setRange(0, steps);
  bar.setValue(0);
  bar.setFormat(format);
}

SteadyProgress::SteadyProgress(QProgressBar& bar) : bar_(bar) {
  sinceLast_.start();
}

SteadyProgress::~SteadyProgress() {
  bar_.setUpdatesEnabled(true);
}

void SteadyProgress::to(int value) {
  bar_.setUpdatesEnabled(false);
  bar_.setValue(value);
  if (sinceLast_.elapsed() < kInterval) return;
  rest();
  bar_.setUpdatesEnabled(false);
  sinceLast_.restart();
}

void SteadyProgress::rest() {
  bar_.setUpdatesEnabled(true);
  bar_.repaint();
}

void SteadyProgress::end() {
  bar_.setFormat(QStringLiteral("100%"));
  rest();
}
