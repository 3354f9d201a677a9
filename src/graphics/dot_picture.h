#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

/// Draws a picture of dots into a place, in its middle, proportions kept: on the device's own points, so that
/// dots are grey where there are too few and squares where there are many. Keeps what it drew last.
class PittoreDiPunti {
 public:
  void mostra(const QImage& punti);
  const QImage& punti() const { return punti_; }
  /// The place that the picture takes within `posto`.
  QRect dove(const QRect& posto) const;
  void dipingi(QPainter& pittore, const QRect& posto);

 private:
  QImage punti_;
  QPixmap ridotta_;
};

/// A bitmap as the printer will make it, on its paper; an empty frame without one.
class QuadroPunti : public QWidget {
  Q_OBJECT

 public:
  explicit QuadroPunti(QWidget* parent = nullptr);

  void mostra(const QImage& punti);
  const QImage& punti() const { return pittore_.punti(); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  PittoreDiPunti pittore_;
};
