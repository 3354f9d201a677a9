#include "controls/quadro.h"

#include <QPainter>
#include <QPainterPath>

namespace {
constexpr QSize kMisura{640, 480};
constexpr QSize kMinima{96, 72};
constexpr int kSpigolo = 12;
constexpr int kMezzaLuce = 128;
/// How much of the window's colour lies over a picture on a dark desktop, where its full light would dazzle.
constexpr float kVelatura = 0.14F;
}  // namespace

Quadro::Quadro(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void Quadro::impostaImmagine(const QPixmap& immagine) {
  immagine_ = immagine;
  update();
}

bool Quadro::carica(const QString& file) {
  const QPixmap letta(file);
  if (letta.isNull()) return false;
  impostaImmagine(letta);
  return true;
}

QSize Quadro::sizeHint() const {
  return kMisura;
}

QSize Quadro::minimumSizeHint() const {
  return kMinima;
}

void Quadro::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  pittore.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  QPainterPath bordo;
  bordo.addRoundedRect(QRectF(rect()), kSpigolo, kSpigolo);
  pittore.setClipPath(bordo);
  pittore.fillRect(rect(), palette().midlight());
  if (immagine_.isNull()) return;
  QRect posto(QPoint(), immagine_.size().scaled(size(), Qt::KeepAspectRatio));
  posto.moveCenter(rect().center());
  prolungaSfondo(pittore, posto);
  pittore.drawPixmap(posto, immagine_);
  QColor velo = palette().color(QPalette::Window);
  if (velo.lightness() >= kMezzaLuce) return;
  velo.setAlphaF(kVelatura);
  pittore.fillRect(rect(), velo);
}

void Quadro::prolungaSfondo(QPainter& pittore, const QRectF& posto) const {
  const QRectF tutto(rect());
  const qreal alto = immagine_.height();
  const auto stendi = [&](const QRectF& dove, const QRectF& da) { pittore.drawPixmap(dove, immagine_, da); };
  if (posto.top() > tutto.top()) {
    stendi({tutto.topLeft(), QPointF(tutto.right(), posto.top())}, {0, 0, 1, 1});
    stendi({QPointF(tutto.left(), posto.bottom()), tutto.bottomRight()}, {0, alto - 1, 1, 1});
  }
  if (posto.left() > tutto.left()) {
    stendi({tutto.topLeft(), QPointF(posto.left(), tutto.bottom())}, {0, 0, 1, alto});
    stendi({QPointF(posto.right(), tutto.top()), tutto.bottomRight()}, {0, 0, 1, alto});
  }
}
