#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "controls/outcome_bar.h"

class PannelloECR;
class QKeyEvent;
class QPushButton;
struct Contesto;

/// The start and the exit of a screen that exchanges with the till, dialog or workspace: their looks, what
/// their tooltips say on and off, the keys that reach them, and what "Connetti" tells at the foot. Goes with
/// the start command.
class ComandiLink : public QObject {
  Q_OBJECT

 public:
  /// Couples the panel with the two and with `piede`, which may be null. `icona`: of the start command.
  ComandiLink(PannelloECR& pannello, QPushButton& avvia, QPushButton& esci, OutcomeBar* piede,
              const QString& icona);

  /// The work of "Connetti". `avvertenza` is asked once the till has answered: what the person should keep in
  /// mind from then on, empty for nothing.
  void connetti(const std::function<QString()>& avvertenza, Contesto& contesto);
  void abilita(bool avvia, bool esci);
  bool siPuoUscire() const;
  /// To the exit, where "Connetti" puts the focus, once a transfer is over.
  void ridaiEsci();
  /// What the tooltips say, by what is on.
  void spiega();

  /// F9 starts. Enter that reached the window is kept from the dialog's own command: the link has put the
  /// focus on the exit by itself, and whoever goes on typing must not leave with it. False for any other key.
  bool prende(const QKeyEvent& evento);

  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  PannelloECR& pannello_;
  QPushButton& avvio_;
  QPushButton& esci_;
  OutcomeBar* piede_;
  /// Tooltips of the commands while they are on.
  QString aCheServe_;
  QString doveSiTorna_;
  bool collegata_ = false;
};
