#pragma once

#include <QAbstractButton>

/// One entry of the picture menu: a large label with an icon that shows whether it is the highlighted one,
/// and can be worked by mouse, keys and screen readers alike.
class MenuEntry : public QAbstractButton {
  Q_OBJECT
  /// 1 highlighted, 0 plain.
  Q_PROPERTY(int look READ look WRITE setLook)

 public:
  explicit MenuEntry(QWidget* parent = nullptr);

  int look() const { return look_; }
  void setLook(int look);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// At every move of the mouse over the entry, no button pressed included.
  void hovered();
  /// The keys brought the focus here.
  void reached();

 protected:
  void mouseMoveEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int minWidth() const;

  int look_ = 0;
};
