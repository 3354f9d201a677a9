#pragma once

#include <QColor>
#include <QFrame>
#include <QTimer>

/// A small round colour area that tells of data on a line. A line changes it at each character: it is painted
/// anew at the beat of an eye, whatever its colour does in between.
class SpiaDati : public QFrame {
  Q_OBJECT
  Q_PROPERTY(QColor colore READ colore WRITE accendi)

 public:
  explicit SpiaDati(QWidget* parent = nullptr);

  QColor colore() const { return colore_; }
  void accendi(const QColor& colore);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colore_;
  QTimer battito_;
};
