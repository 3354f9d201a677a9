#include "controls/icona_svg.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace {

QByteArray disegno(const QString& file, const QColor& colore) {
  QFile entrata(file);
  if (!entrata.open(QIODevice::ReadOnly)) return {};
  return entrata.readAll().replace("currentColor", colore.name().toLatin1());
}

QPixmap dipinta(const QString& file, const QColor& colore, const QSize& misura) {
  QPixmap immagine(misura);
  immagine.fill(Qt::transparent);
  const QByteArray svg = disegno(file, colore);
  if (svg.isEmpty()) return immagine;
  QSvgRenderer disegnatore(svg);
  QPainter pittore(&immagine);
  disegnatore.render(&pittore);
  return immagine;
}

}  // namespace

IconaSvg::IconaSvg(QString file, QPalette::ColorRole ruolo) : file_(std::move(file)), ruolo_(ruolo) {}

IconaSvg::IconaSvg(QString file, const QColor& tinta) : file_(std::move(file)), tinta_(tinta) {}

QColor IconaSvg::colore(QIcon::Mode modo) const {
  if (tinta_.isValid()) return tinta_;
  const QPalette palette = QGuiApplication::palette();
  if (modo == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::ButtonText);
  if (modo == QIcon::Selected) return palette.color(QPalette::Active, QPalette::HighlightedText);
  return palette.color(QPalette::Active, ruolo_);
}

void IconaSvg::paint(QPainter* pittore, const QRect& rettangolo, QIcon::Mode modo, QIcon::State stato) {
  const qreal scala = pittore->device() ? pittore->device()->devicePixelRatioF() : 1.0;
  QPixmap immagine = pixmap((QSizeF(rettangolo.size()) * scala).toSize(), modo, stato);
  immagine.setDevicePixelRatio(scala);
  pittore->drawPixmap(rettangolo, immagine);
}

QPixmap IconaSvg::pixmap(const QSize& misura, QIcon::Mode modo, QIcon::State /*stato*/) {
  if (misura.isEmpty()) return {};
  const QColor tinta = colore(modo);
  const QString chiave =
      QStringLiteral("%1|%2|%3x%4").arg(file_, tinta.name()).arg(misura.width()).arg(misura.height());
  QPixmap immagine;
  if (QPixmapCache::find(chiave, &immagine)) return immagine;
  immagine = dipinta(file_, tinta, misura);
  QPixmapCache::insert(chiave, immagine);
  return immagine;
}

QIconEngine* IconaSvg::clone() const {
  return new IconaSvg(*this);
}

QString IconaSvg::key() const {
  return QStringLiteral("IconaSvg");
}
