#include "controls/svg_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>
#include <iterator>
#include <utility>

namespace {

/// Of a sign's side: what its ground leaves free around it, and how round the ground's corners are.
constexpr qreal kAround = 0.16;
constexpr qreal kCorner = 0.2;

constexpr char kSuffix[] = ".svg";

const QColor kSign(0xFFFFFF);
const QColor kSignGround(0x32747A);

QByteArray drawing(const QString& file, const QColor& colour) {
  QFile device(file);
  if (!device.open(QIODevice::ReadOnly)) return {};
  return device.readAll().replace("currentColor", colour.name().toLatin1());
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

/// A drawing's cover at one size, a byte a point, where the build left it beside the file; null elsewhere.
/// What draws SVG is not even begun for a menu that finds all of its icons so.
QImage coverOf(const QString& file, const QSize& size) {
  const int side = size.width();
  if (side != size.height() || !file.endsWith(QLatin1String(kSuffix))) return {};
  QFile drawn(file.chopped(qsizetype(std::size(kSuffix)) - 1) + QStringLiteral("-%1.cover").arg(side));
  if (!drawn.open(QIODevice::ReadOnly) || drawn.size() != qint64{side} * side) return {};
  QImage cover(size, QImage::Format_Alpha8);
  for (int y = 0; y < side; ++y)
    if (drawn.read(reinterpret_cast<char*>(cover.scanLine(y)), side) != side) return {};
  return cover;
}

QPixmap tinted(const QImage& cover, const QColor& colour) {
  QImage image(cover.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(colour.rgb());
  QPainter painter(&image);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  painter.drawImage(0, 0, cover);
  painter.end();
  return QPixmap::fromImage(std::move(image));
}

QPixmap painted(const QString& file, const QColor& colour, const QColor& ground, const QSize& size) {
  if (const QImage cover = ground.isValid() ? QImage() : coverOf(file, size); !cover.isNull())
    return tinted(cover, colour);
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
