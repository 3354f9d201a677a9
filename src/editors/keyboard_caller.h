#pragma once

#include <QString>

class FlexGrid;
class QAbstractButton;
class QLineEdit;

/// The screen of a keyboard layout, as the choice of what a key does and the filling of its grid see it. It
/// outlives the choice that it opens.
class ChiamanteTasti {
 public:
  virtual ~ChiamanteTasti() = default;
  /// Name of the screen.
  virtual QString nome() const = 0;
  /// The field that takes the text of the function chosen.
  virtual QLineEdit& Text1() = 0;
  /// The button of a key by its number, 0 to 71.
  virtual QAbstractButton& cmdTasto(int tasto) = 0;
  /// 8 columns, and a row for each 8 keys.
  virtual FlexGrid& MSFlexGrid() = 0;
};
