#pragma once

#include <QDialog>
#include <QPoint>
#include <QRect>
#include <memory>

#include "core/screen.h"

class ChiamanteTasti;
namespace Ui {
class frmTastiOpzione;
}

namespace editors {

/// Marks the caller's key and lets the person choose what it does, with the other screens shut off: the text
/// chosen comes into the caller's `Text1`. Throws Errore 9 for a key outside 0 to 71.
void ScegliTasto(ChiamanteTasti& chiamante, int tasto, Contesto& contesto);

/// What a button of the choice stands for, by its index: empty for one that has no function, up to the limit
/// of 59; Errore 9 beyond it.
QString FunzioneTasto(int indice);

/// Where the choice stands, frame included: at the foot of the workspace for the screens of the keyboard
/// layouts, whose keys lie above, in its middle for all others, and always on the display.
QPoint postoDellaScelta(const QString& chiamante, const QSize& scelta, const QRect& area,
                        const QRect& display);

}  // namespace editors

/// "Scelta Tasti ": what one key does. Without a caller it only shows what is chosen.
class frmTastiOpzione : public Schermo<QDialog> {
  Q_OBJECT

 public:
  explicit frmTastiOpzione(Contesto& contesto);
  ~frmTastiOpzione() override;

  /// The caller, which outlives the screen, and its key, which is marked from now on: its choice is pending.
  void per(ChiamanteTasti& chiamante, int tasto);

  /// However the screen is left, by "Esci", Esc or its frame.
  void reject() override;

 protected:
  /// Enter presses the function that has the focus.
  void keyPressEvent(QKeyEvent* evento) override;

 private:
  void creaTasti();
  void scelto(int indice);
  void colloca();

  std::unique_ptr<Ui::frmTastiOpzione> ui_;
  ChiamanteTasti* chiamante_ = nullptr;
  int tasto_ = 0;
  bool inSospeso_ = false;
};
