#pragma once

#include <QFrame>

/// Two parts side by side, and one above the other where the window is too narrow for them. Its layout is a
/// QHBoxLayout with the two parts; the first gets the spare width.
class FoldableRow : public QFrame {
  Q_OBJECT
  /// What the first part needs beside the second, in characters of the font.
  Q_PROPERTY(int characters MEMBER characters_)

 public:
  using QFrame::QFrame;

  bool isFolded() const;
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void fold();

  int characters_ = 0;
};
