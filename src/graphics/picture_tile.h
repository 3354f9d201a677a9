#pragma once

#include <QAbstractButton>

#include "graphics/dot_picture.h"
#include "graphics/picture_check.h"

/// One of the twelve pictures: its number and type, the dots that will be printed, the class of tills that it
/// fits, and why it would be refused. A place without a bitmap is dashed. The checked one is the row that the
/// grid stands on. A bitmap file may be dropped on it.
class TesseraGrafica : public QAbstractButton {
  Q_OBJECT

 public:
  explicit TesseraGrafica(int numero, QWidget* parent = nullptr);

  void mostra(const QString& tipo, const QString& file, const graphics::Esame& esame);
  const graphics::Esame& esame() const { return esame_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// Path of a file that a person let go over it.
  void lasciata(const QString& percorso);

 protected:
  void paintEvent(QPaintEvent* evento) override;
  void dragEnterEvent(QDragEnterEvent* evento) override;
  void dragLeaveEvent(QDragLeaveEvent* evento) override;
  void dropEvent(QDropEvent* evento) override;

 private:
  void dipingiFondo(QPainter& pittore) const;
  void dipingiTesta(QPainter& pittore, const QRect& riga) const;
  void dipingiPiede(QPainter& pittore, const QRect& posto) const;
  void dipingiBollo(QPainter& pittore, const QRect& dentro) const;
  QString bollo() const;
  QFont carattereBollo() const;
  /// 0 without a class.
  int larghezzaBollo() const;
  QString piede() const;

  int numero_;
  QString tipo_;
  QString file_;
  graphics::Esame esame_;
  PittoreDiPunti pittore_;
  bool sopra_ = false;
};
