#include "controls/quadro.h"

#include <QPainter>
#include <QPainterPath>

namespace {
constexpr QSize kMisura{640, 480};
constexpr QSize kMinima{120, 90};
constexpr int kSpigolo = 12;
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
  QRectF posto(rect());
  if (!immagine_.isNull()) {
    posto.setSize(QSizeF(immagine_.size()).scaled(posto.size(), Qt::KeepAspectRatio));
    posto.moveCenter(QRectF(rect()).center());
  }
  QPainterPath bordo;
  bordo.addRoundedRect(posto, kSpigolo, kSpigolo);
  pittore.setClipPath(bordo);
  pittore.fillRect(posto, palette().midlight());
  if (!immagine_.isNull()) pittore.drawPixmap(posto, immagine_, QRectF(immagine_.rect()));
}
