#pragma once

#include <memory>

#include "ecrlink/link_window.h"

namespace Ui {
class Form_TrasferimentoProgrammazione;
}

/// "Trasferimento Programmazione": sends the open configuration to the till, receives the till's, or closes
/// the till's fiscal data.
class Form_TrasferimentoProgrammazione : public FinestraLink {
  Q_OBJECT

 public:
  explicit Form_TrasferimentoProgrammazione(Contesto& contesto);
  ~Form_TrasferimentoProgrammazione() override;

 protected:
  QString avvertenza() const override;

 private Q_SLOTS:
  void on_Cmd_Avvia_clicked();

 private:
  void lavora();
  /// The closure that a till with open fiscal data wants first; true if the command may go on.
  bool sblocca();
  /// Of a command that would lose data: true for OK.
  bool conferma(const QString& domanda);
  /// `avviabile`: whether the start comes back on where nothing is done.
  void azzera(bool avviabile);
  void invia();
  void ricevi();
  void preparaBarra();

  std::unique_ptr<Ui::Form_TrasferimentoProgrammazione> ui_;
};
