#pragma once

#include <memory>

#include "ecrlink/link_window.h"

namespace Ui {
class Form_TrasferimentoArticoli;
}

/// "Trasferimento Articoli": sends the whole archive to the till.
class Form_TrasferimentoArticoli : public FinestraLink {
  Q_OBJECT

 public:
  explicit Form_TrasferimentoArticoli(Contesto& contesto);
  ~Form_TrasferimentoArticoli() override;

 private Q_SLOTS:
  void on_Cmd_Avvia_clicked();

 private:
  bool invia();

  std::unique_ptr<Ui::Form_TrasferimentoArticoli> ui_;
};
