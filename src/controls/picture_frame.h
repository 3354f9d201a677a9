#pragma once

#include <QPixmap>
#include <QWidget>

/// A picture as large as its place allows, proportions kept, with rounded corners; its left edge is drawn on
/// into what it leaves free. It is sharp at every scale of the display that it has the points for. Without a
/// picture it shows a plain ground.
class PictureFrame : public QWidget {
  Q_OBJECT

 public:
  explicit PictureFrame(QWidget* parent = nullptr);

  const QPixmap& image() const { return image_; }
  void setImage(const QPixmap& image);
  /// Reads a picture file anew; false if it cannot be read, and then the one shown stays.
  bool load(const QString& file);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void extendBackground(QPainter& painter, const QRectF& place) const;
  /// The picture in as many points as the device has for it; shrunk once and kept.
  const QPixmap& fitted(const QSize& points);

  QPixmap image_;
  QPixmap fitted_;
};
