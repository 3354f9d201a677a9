#pragma once

#include <QProxyStyle>

class QStyleOptionComboBox;

namespace style {

struct Tints;

/// Fusion with the program's own icons in boxes and file dialogs, menus highlighted in a wash on which their
/// icons can be seen, icons of buttons as high as their captions and clear of them, and none on the buttons
/// of a dialog. Headings grow with the letters around them. Check
/// boxes have a border that is seen on any ground, lists that fold up look like fields and are as high. A
/// picture whose file is not there is Fusion's.
class ProgramStyle : public QProxyStyle {
 public:
  /// `tints` has to outlive the style.
  explicit ProgramStyle(const Tints& tints);

  using QProxyStyle::polish;
  void polish(QWidget* who) override;
  QIcon standardIcon(StandardPixmap which, const QStyleOption* options, const QWidget* who) const override;
  QPixmap standardPixmap(StandardPixmap which, const QStyleOption* options,
                         const QWidget* who) const override;
  int styleHint(StyleHint which, const QStyleOption* options, const QWidget* who,
                QStyleHintReturn* data) const override;
  void drawPrimitive(PrimitiveElement which, const QStyleOption* options, QPainter* painter,
                     const QWidget* who) const override;
  void drawComplexControl(ComplexControl which, const QStyleOptionComplex* options, QPainter* painter,
                          const QWidget* who) const override;
  QSize sizeFromContents(ContentsType which, const QStyleOption* options, const QSize& contents,
                         const QWidget* who) const override;
  void drawControl(ControlElement which, const QStyleOption* options, QPainter* painter,
                   const QWidget* who) const override;

 private:
  QIcon own(StandardPixmap which) const;
  void drawComboBox(const QStyleOptionComboBox& options, QPainter& painter, const QWidget* who) const;
  void drawCheckBox(const QStyleOption& options, QPainter& painter) const;

  const Tints& tints_;
};

}  // namespace style
