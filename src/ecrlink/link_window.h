#pragma once

#include <QDialog>
#include <QString>
#include <functional>

#include "core/screen.h"

class PannelloECR;
class QPushButton;

/// What the modal screens that exchange with the till share: their load, "Connetti", the way out and the
/// commands that are off while a transfer runs. A screen hands its controls over and works through the
/// procedures below.
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
  /// The work of Cmd_Avvia as a command; true if the screen is to be unloaded behind it.
  void avvia(const std::function<bool()>& trasferimento);
  /// Turns the start and the exit on or off.
  void abilita(bool avvia, bool esci);
  /// Turns "Connetti" on or off, for the transfers that switch it off too.
  void abilitaConnetti(bool abilitato);
  /// A box with the warning icon.
  void avvisa(const QString& testo);

 private:
  void connetti();

  QString casa_;
  PannelloECR* pannello_ = nullptr;
  QPushButton* avvio_ = nullptr;
  QPushButton* esci_ = nullptr;
};
