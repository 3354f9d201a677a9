#pragma once

#include <QHeaderView>

/// The heading row of a grid: a heading that has a ground of its own is painted on it, whatever the style
/// sheet gives to headings.
class HeadingView : public QHeaderView {
  Q_OBJECT

 public:
  explicit HeadingView(QWidget* parent = nullptr);

 protected:
  void paintSection(QPainter* painter, const QRect& place, int section) const override;
};
