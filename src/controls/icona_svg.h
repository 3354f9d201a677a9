#pragma once

#include <QIconEngine>
#include <QPalette>
#include <QString>

/// Paints one SVG file in a colour of the palette: Qt's renderer knows no `currentColor` and would paint it
/// black on whatever ground.
class IconaSvg : public QIconEngine {
 public:
  /// `ruolo`: the palette's colour for the icon in its normal mode.
  IconaSvg(QString file, QPalette::ColorRole ruolo);

  void paint(QPainter* pittore, const QRect& rettangolo, QIcon::Mode modo, QIcon::State stato) override;
  QPixmap pixmap(const QSize& misura, QIcon::Mode modo, QIcon::State stato) override;
  QIconEngine* clone() const override;
  QString key() const override;

 private:
  QColor colore(QIcon::Mode modo) const;

  QString file_;
  QPalette::ColorRole ruolo_;
};
