#pragma once

#include <QDialog>
#include <QString>
#include <functional>

struct Contesto;
class QPushButton;

/// What the modal screens that exchange the archive with the till share: their load, "Connetti", the way out
/// and the commands that are off while a transfer runs. The controls are reached by their names, which every
/// such screen has: `Cmd_Avvia`, `Cmd_Esci`, and those of PannelloECR.
class FinestraTrasferimento : public QDialog {
  Q_OBJECT

 public:
  explicit FinestraTrasferimento(Contesto& contesto);

  /// Esc and the frame's close: the way out while Cmd_Esci is enabled, nothing otherwise.
  void reject() override;

 protected:
  /// To be called once the controls stand: connects them, then fills the address boxes. Returns what InitRete
  /// returned.
  int caricaSchermo();
  /// The work of Cmd_Avvia in a command of its own, input eaten meanwhile; true if the screen is to be
  /// unloaded behind it.
  void esegui(const std::function<bool()>& trasferimento);
  /// Turns both commands on or off.
  void abilita(bool avvia, bool esci);
  /// A box with the warning icon.
  void avvisa(const QString& testo);
  Contesto& contesto() { return contesto_; }

 private:
  void connetti();
  void esci();
  QPushButton& comando(const QString& nome);

  Contesto& contesto_;
};
