#pragma once

#include <QHeaderView>

/// The heading row of a grid: a heading that has a ground of its own is painted on it, whatever the style
/// sheet gives to headings.
class Testata : public QHeaderView {
  Q_OBJECT

 public:
  explicit Testata(QWidget* parent = nullptr);

 protected:
  void paintSection(QPainter* pittore, const QRect& posto, int sezione) const override;
};
