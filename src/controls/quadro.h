#pragma once

#include <QPixmap>
#include <QWidget>

/// A picture as large as its place allows, proportions kept, with rounded corners; its left edge is drawn on
/// into what it leaves free. Without a picture it shows a plain ground.
class Quadro : public QWidget {
  Q_OBJECT

 public:
  explicit Quadro(QWidget* parent = nullptr);

  const QPixmap& immagine() const { return immagine_; }
  void impostaImmagine(const QPixmap& immagine);
  /// Reads a picture file; false if it cannot be read, and then the one shown stays.
  bool carica(const QString& file);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  void prolungaSfondo(QPainter& pittore, const QRectF& posto) const;

  QPixmap immagine_;
};
