#pragma once

#include <QColor>
#include <QIconEngine>
#include <QPalette>
#include <QString>

/// Paints one SVG file in a colour of the palette or of its own: Qt's renderer knows no `currentColor` and
/// would paint it black on whatever ground.
class SvgIcon : public QIconEngine {
 public:
  /// `role`: the palette's colour for the icon in its normal mode.
  SvgIcon(QString file, QPalette::ColorRole role);
  /// `tint`: its colour in every mode.
  SvgIcon(QString file, const QColor& tint);

  void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QIconEngine* clone() const override;
  QString key() const override;

 private:
  QColor colour(QIcon::Mode mode) const;

  QString file_;
  QPalette::ColorRole role_ = QPalette::NoRole;
  QColor tint_;
};
