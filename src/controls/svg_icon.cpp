#include "controls/svg_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>

namespace {

/// Of a sign's side: what its ground leaves free around it, and how round the ground's corners are.
constexpr qreal kAround = 0.16;
constexpr qreal kCorner = 0.2;

const QColor kSign(0xFFFFFF);
const QColor kSignGround(0x32747A);

QByteArray drawing(const QString& file, const QColor& colour) {
  QFile cellEntered(file);
  if (!cellEntered.open(QIODevice::ReadOnly)) return {};
  return cellEntered.readAll().replace("currentColor", colour.name().toLatin1());
}

/// A square, at the left of a place that is wider.
QRectF square(const QSize& size) {
  const qreal side = std::min(size.width(), size.height());
  return {0, (size.height() - side) / 2, side, side};
}

QRectF grounded(QPainter& painter, const QRectF& all, const QColor& ground) {
  if (!ground.isValid()) return all;
  const qreal side = std::min(all.width(), all.height());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(all, side * kCorner, side * kCorner);
  const qreal around = side * kAround;
  return all.adjusted(around, around, -around, -around);
}

QPixmap painted(const QString& file, const QColor& colour, const QColor& ground, const QSize& size) {
  QPixmap image(size);
  image.fill(Qt::transparent);
  const QByteArray svg = drawing(file, colour);
  if (svg.isEmpty()) return image;
  QSvgRenderer renderer(svg);
  QPainter painter(&image);
  renderer.render(&painter, grounded(painter, square(size), ground));
  return image;
}

}  // namespace

SvgIcon::SvgIcon(QString file, QPalette::ColorRole role) : file_(std::move(file)), role_(role) {}

SvgIcon::SvgIcon(QString file, const QColor& tint) : file_(std::move(file)), tint_(tint) {}

SvgIcon::SvgIcon(QString file, const QColor& tint, const QColor& ground)
    : file_(std::move(file)), tint_(tint), ground_(ground) {}

QColor SvgIcon::colour(QIcon::Mode mode) const {
  if (tint_.isValid()) return tint_;
  const QPalette palette = QGuiApplication::palette();
  if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::ButtonText);
  if (mode == QIcon::Selected) return palette.color(QPalette::Active, QPalette::HighlightedText);
  return palette.color(QPalette::Active, role_);
}

void SvgIcon::paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode, QIcon::State state) {
  const qreal scale = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
  QPixmap image = pixmap((QSizeF(rectangle.size()) * scale).toSize(), mode, state);
  image.setDevicePixelRatio(scale);
  painter->drawPixmap(rectangle, image);
}

QPixmap SvgIcon::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*stato*/) {
  if (size.isEmpty()) return {};
  const QColor tint = colour(mode);
  const QString key = QStringLiteral("%1|%2|%3|%4x%5")
                          .arg(file_, tint.name(), ground_.isValid() ? ground_.name() : QString())
                          .arg(size.width())
                          .arg(size.height());
  QPixmap image;
  if (QPixmapCache::find(key, &image)) return image;
  image = painted(file_, tint, ground_, size);
  QPixmapCache::insert(key, image);
  return image;
}

QIconEngine* SvgIcon::clone() const {
  return new SvgIcon(*this);
}

QString SvgIcon::key() const {
  return QStringLiteral("IconaSvg");
}

QIcon programSign(const QString& file) {
  return QIcon(new SvgIcon(file, kSign, kSignGround));
}
