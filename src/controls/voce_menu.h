#pragma once

#include <QAbstractButton>

/// One entry of the picture menu: a large label with an icon that shows whether it is the highlighted one,
/// and can be worked by mouse, keys and screen readers alike.
class VoceMenu : public QAbstractButton {
  Q_OBJECT
  /// 1 highlighted, 0 plain.
  Q_PROPERTY(int aspetto READ aspetto WRITE impostaAspetto)

 public:
  explicit VoceMenu(QWidget* parent = nullptr);

  int aspetto() const { return aspetto_; }
  void impostaAspetto(int aspetto);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// At every move of the mouse over the entry, no button pressed included.
  void mosso();
  /// The keys brought the focus here.
  void raggiunto();

 protected:
  void mouseMoveEvent(QMouseEvent* evento) override;
  void focusInEvent(QFocusEvent* evento) override;
  void focusOutEvent(QFocusEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void paintEvent(QPaintEvent* evento) override;

 private:
  int larghezzaMinima() const;

  int aspetto_ = 0;
};
