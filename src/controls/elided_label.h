#pragma once

#include <QLabel>

/// One line of plain text that gives up its middle where it has no room: a name of any length leaves the
/// window its width. The whole text stays in `text()`.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent = nullptr);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};
