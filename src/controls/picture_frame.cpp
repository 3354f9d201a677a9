#include "controls/picture_frame.h"

#include <QPainter>
#include <QPainterPath>

namespace {
constexpr QSize kSize{640, 480};
constexpr QSize kMin{96, 72};
constexpr int kCorner = 12;
constexpr int kHalfLight = 128;
/// How much of the window's colour lies over a picture on a dark desktop, where its full light would dazzle.
constexpr float kVeil = 0.14F;
}  // namespace

PictureFrame::PictureFrame(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureFrame::setImage(const QPixmap& image) {
  image_ = image;
  fitted_ = {};
  update();
}

bool PictureFrame::load(const QString& file) {
  // Not through a pixmap's constructor, which would give back what it has read before.
  const QImage read(file);
  if (read.isNull()) return false;
  setImage(QPixmap::fromImage(read));
  return true;
}

QSize PictureFrame::sizeHint() const {
  return kSize;
}

QSize PictureFrame::minimumSizeHint() const {
  return kMin;
}

const QPixmap& PictureFrame::fitted(const QSize& points) {
  // More points than it has are the painter's to make up.
  if (points.width() >= image_.width()) return image_;
  if (fitted_.size() != points)
    fitted_ = image_.scaled(points, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return fitted_;
}

void PictureFrame::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  QPainterPath border;
  border.addRoundedRect(QRectF(rect()), kCorner, kCorner);
  painter.fillPath(border, palette().midlight());
  if (image_.isNull()) return;
  painter.setClipPath(border);
  QRect place(QPoint(), image_.size().scaled(size(), Qt::KeepAspectRatio));
  place.moveCenter(rect().center());
  extendBackground(painter, place);
  const qreal scale = painter.deviceTransform().m11();
  const QPixmap& sharp = fitted((QSizeF(place.size()) * scale).toSize());
  painter.drawPixmap(QRectF(place), sharp, QRectF(sharp.rect()));
  QColor veil = palette().color(QPalette::Window);
  if (veil.lightness() >= kHalfLight) return;
  veil.setAlphaF(kVeil);
  painter.fillRect(rect(), veil);
}

void PictureFrame::extendBackground(QPainter& painter, const QRectF& place) const {
  const QRectF all(rect());
  const qreal high = image_.height();
  const auto spread = [&](const QRectF& where, const QRectF& from) {
    painter.drawPixmap(where, image_, from);
  };
  if (place.top() > all.top()) {
    spread({all.topLeft(), QPointF(all.right(), place.top())}, {0, 0, 1, 1});
    spread({QPointF(all.left(), place.bottom()), all.bottomRight()}, {0, high - 1, 1, 1});
  }
  if (place.left() > all.left()) {
    spread({all.topLeft(), QPointF(place.left(), all.bottom())}, {0, 0, 1, high});
    spread({QPointF(place.right(), all.top()), all.bottomRight()}, {0, 0, 1, high});
  }
}
