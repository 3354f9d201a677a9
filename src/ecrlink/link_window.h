#pragma once

#include <QDialog>
#include <QString>
#include <functional>

#include "controls/outcome_bar.h"
#include "core/screen.h"

class ComandiLink;
class PannelloECR;
class QKeyEvent;
class QPushButton;

/// What the modal screens that exchange with the till share: their load, "Connetti", the way out, the keys,
/// and the commands that are off while a transfer runs. A screen hands its controls over and works through
/// the procedures below.
class FinestraLink : public Schermo<QDialog> {
  Q_OBJECT

 public:
  /// `casa`: name of the screen that the exit leads back to.
  FinestraLink(Contesto& contesto, QString casa);

  /// Esc and the frame's close: the way out while Cmd_Esci is enabled, nothing otherwise.
  void reject() override;

 protected:
  struct Comandi {
    PannelloECR& pannello;
    QPushButton& avvia;
    QPushButton& esci;
    /// Of the start command.
    const char* icona;
  };
  /// To be called once the controls stand: dresses and connects them, then fills the address boxes. Returns
  /// what InitRete returned.
  int caricaSchermo(const Comandi& comandi);
  /// The work of Cmd_Avvia as a command; true if the screen is to be unloaded behind it. What the till is
  /// asked for meanwhile is shown at the foot.
  void avvia(const std::function<bool()>& trasferimento);
  /// Turns the start and the exit on or off.
  void abilita(bool avvia, bool esci);
  /// Turns "Connetti" on or off, for the transfers that switch it off too.
  void abilitaConnetti(bool abilitato);
  /// A box with the warning icon.
  void avvisa(const QString& testo);
  /// What a command did, for the foot.
  void racconta(OutcomeBar::Kind genere, const QString& testo);
  /// What the person should keep in mind from the connection on, told at the foot with it; empty for nothing.
  virtual QString avvertenza() const { return {}; }

  /// F9 starts. Enter presses the button that has the focus, the exit aside.
  void keyPressEvent(QKeyEvent* evento) override;
  void showEvent(QShowEvent* evento) override;

 private:
  void connetti();
  /// As high as its texts need: one at the foot may take more lines than the one before.
  void cresci();

  QString casa_;
  PannelloECR* pannello_ = nullptr;
  OutcomeBar* piede_ = nullptr;
  ComandiLink* comandi_ = nullptr;
};
