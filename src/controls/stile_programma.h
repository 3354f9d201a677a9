#pragma once

#include <QProxyStyle>

namespace stile {

struct Tinte;

/// Fusion with the program's own icons in boxes and file dialogs, menus highlighted in a wash on which their
/// icons can be seen, and no icons on the buttons of a dialog. A picture whose file is not there is Fusion's.
class StileProgramma : public QProxyStyle {
 public:
  /// `tinte` has to outlive the style.
  explicit StileProgramma(const Tinte& tinte);

  QIcon standardIcon(StandardPixmap quale, const QStyleOption* opzioni, const QWidget* chi) const override;
  QPixmap standardPixmap(StandardPixmap quale, const QStyleOption* opzioni,
                         const QWidget* chi) const override;
  int styleHint(StyleHint quale, const QStyleOption* opzioni, const QWidget* chi,
                QStyleHintReturn* dati) const override;
  void drawControl(ControlElement quale, const QStyleOption* opzioni, QPainter* pittore,
                   const QWidget* chi) const override;

 private:
  QIcon propria(StandardPixmap quale) const;

  const Tinte& tinte_;
};

}  // namespace stile
