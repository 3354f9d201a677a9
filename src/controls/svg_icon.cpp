#include "controls/svg_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace {

QByteArray drawing(const QString& file, const QColor& colour) {
  QFile cellEntered(file);
  if (!cellEntered.open(QIODevice::ReadOnly)) return {};
  return cellEntered.readAll().replace("currentColor", colour.name().toLatin1());
}

QPixmap painted(const QString& file, const QColor& colour, const QSize& size) {
  QPixmap image(size);
  image.fill(Qt::transparent);
  const QByteArray svg = drawing(file, colour);
  if (svg.isEmpty()) return image;
  QSvgRenderer renderer(svg);
  QPainter painter(&image);
  renderer.render(&painter);
  return image;
}

}  // namespace

SvgIcon::SvgIcon(QString file, QPalette::ColorRole role) : file_(std::move(file)), role_(role) {}

SvgIcon::SvgIcon(QString file, const QColor& tint) : file_(std::move(file)), tint_(tint) {}

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
  const QString key =
      QStringLiteral("%1|%2|%3x%4").arg(file_, tint.name()).arg(size.width()).arg(size.height());
  QPixmap image;
  if (QPixmapCache::find(key, &image)) return image;
  image = painted(file_, tint, size);
  QPixmapCache::insert(key, image);
  return image;
}

QIconEngine* SvgIcon::clone() const {
  return new SvgIcon(*this);
}

QString SvgIcon::key() const {
  return QStringLiteral("IconaSvg");
}
