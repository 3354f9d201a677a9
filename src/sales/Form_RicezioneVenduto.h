#pragma once

#include <memory>

#include "articles/link_window.h"
#include "sales/reception.h"

class Schermate;
namespace Ui {
class Form_RicezioneVenduto;
}

/// "Ricezione del Venduto": takes the sales from the till and clears them there, or only clears them.
class Form_RicezioneVenduto : public FinestraTrasferimento {
  Q_OBJECT

 public:
  explicit Form_RicezioneVenduto(Contesto& contesto);
  ~Form_RicezioneVenduto() override;

 private Q_SLOTS:
  void on_Cmd_Avvia_clicked();

 private:
  /// True if the screen is to be unloaded.
  bool avvia();
  sales::Esito ricevi();

  std::unique_ptr<Ui::Form_RicezioneVenduto> ui_;
};

void registraRicezioneVenduto(Schermate& schermate);
