#pragma once

#include <memory>

#include "ecrlink/link_window.h"
#include "sales/reception.h"

namespace Ui {
class Form_RicezioneVenduto;
}

/// "Ricezione del Venduto": takes the sales from the till and clears them there, or only clears them.
class Form_RicezioneVenduto : public FinestraLink {
  Q_OBJECT

 public:
  explicit Form_RicezioneVenduto(Contesto& contesto);
  ~Form_RicezioneVenduto() override;

 protected:
  QString avvertenza() const override;

 private Q_SLOTS:
  void on_Cmd_Avvia_clicked();

 private:
  /// True if the screen is to be unloaded.
  bool lavora();
  sales::Ricezione ricevi();
  sales::EsitoVenduto azzera();
  void raccontaRicezione(const sales::Ricezione& ricezione);

  std::unique_ptr<Ui::Form_RicezioneVenduto> ui_;
};
