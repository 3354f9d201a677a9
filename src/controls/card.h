#pragma once

#include <QPushButton>

/// A large command of a workspace: its icon on a disc, its caption, and a line that says what it is for. With
/// room the three stand one below the other; in a low place the caption stands beside the icon, alone. A long
/// caption takes two lines where there is no room for one.
class Card : public QPushButton {
  Q_OBJECT
  /// What the command is for, in one line.
  Q_PROPERTY(QString hint READ hint WRITE setHint)

 public:
  explicit Card(QWidget* parent = nullptr);

  QString hint() const { return hint_; }
  void setHint(const QString& hint);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool flat() const;
  QFont titleFormat(double zoom) const;
  /// Of the caption in its large letters, on as many lines as it needs; and of all three of a tall card.
  int tallTitleHeight() const;
  int tallHeight() const;
  void drawGround(QPainter& painter);
  void drawDisc(QPainter& painter, const QRect& disc);
  void drawFlat(QPainter& painter);
  void drawTall(QPainter& painter);

  QString hint_;
};
