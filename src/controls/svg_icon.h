#pragma once

#include <QColor>
#include <QIcon>
#include <QIconEngine>
#include <QPalette>
#include <QString>

/// Paints one SVG file in a colour of the palette or of its own: Qt's renderer knows no `currentColor` and
/// would paint it black on whatever ground. It is square; in a wider place it stands at the left.
class SvgIcon : public QIconEngine {
 public:
  /// `role`: the palette's colour for the icon in its normal mode.
  SvgIcon(QString file, QPalette::ColorRole role);
  /// `tint`: its colour in every mode.
  SvgIcon(QString file, const QColor& tint);
  /// A sign on a ground of its own.
  SvgIcon(QString file, const QColor& tint, const QColor& ground);

  void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QIconEngine* clone() const override;
  QString key() const override;

 private:
  QColor colour(QIcon::Mode mode) const;

  QString file_;
  QPalette::ColorRole role_ = QPalette::NoRole;
  QColor tint_;
  QColor ground_;
};

/// The program's sign for the window's frame and the task bar: told from a dark one and from a light one,
/// whatever the program's own look.
QIcon programSign(const QString& file);
