#include "auxcmd/data_lamp.h"

#include <QPainter>

namespace {

/// Between two paintings, in milliseconds.
constexpr int kBattito = 80;

}  // namespace

SpiaDati::SpiaDati(QWidget* parent) : QFrame(parent) {
  battito_.setSingleShot(true);
  battito_.setInterval(kBattito);
  connect(&battito_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

void SpiaDati::accendi(const QColor& colore) {
  if (colore == colore_) return;
  colore_ = colore;
  if (!battito_.isActive()) battito_.start();
}

void SpiaDati::paintEvent(QPaintEvent* /*event*/) {
  QPainter pittore(this);
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setPen(palette().color(QPalette::Mid));
  pittore.setBrush(colore_);
  pittore.drawEllipse(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}
