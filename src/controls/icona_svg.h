#pragma once

#include <QColor>
#include <QIconEngine>
#include <QPalette>
#include <QString>

/// Paints one SVG file in a colour of the palette or of its own: Qt's renderer knows no `currentColor` and
/// would paint it black on whatever ground.
class IconaSvg : public QIconEngine {
 public:
  /// `ruolo`: the palette's colour for the icon in its normal mode.
  IconaSvg(QString file, QPalette::ColorRole ruolo);
  /// `tinta`: its colour in every mode.
  IconaSvg(QString file, const QColor& tinta);

  void paint(QPainter* pittore, const QRect& rettangolo, QIcon::Mode modo, QIcon::State stato) override;
  QPixmap pixmap(const QSize& misura, QIcon::Mode modo, QIcon::State stato) override;
  QIconEngine* clone() const override;
  QString key() const override;

 private:
  QColor colore(QIcon::Mode modo) const;

  QString file_;
  QPalette::ColorRole ruolo_ = QPalette::NoRole;
  QColor tinta_;
};
