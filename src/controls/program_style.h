#pragma once

#include <QProxyStyle>

namespace style {

struct Tints;

/// Fusion with the program's own icons in boxes and file dialogs, menus highlighted in a wash on which their
/// icons can be seen, icons of buttons as high as their captions and clear of them, and none on the buttons
/// of a dialog. Headings grow with the letters around them. Check
/// boxes have a border that is seen on any ground. A picture whose file is not there is Fusion's.
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
  void drawControl(ControlElement which, const QStyleOption* options, QPainter* painter,
                   const QWidget* who) const override;

 private:
  QIcon own(StandardPixmap which) const;
  void drawCheckBox(const QStyleOption& options, QPainter& painter) const;

  const Tints& tints_;
};

}  // namespace style
