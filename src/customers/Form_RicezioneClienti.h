#pragma once

#include <memory>

#include "customers/reception.h"
#include "ecrlink/link_window.h"

namespace Ui {
class Form_RicezioneClienti;
}

/// "Ricezione archivio clienti e/o fatture": takes the till's invoices or its customers into the archive, or
/// clears the invoices on the till.
class Form_RicezioneClienti : public FinestraLink {
  Q_OBJECT

 public:
  explicit Form_RicezioneClienti(Contesto& contesto);
  ~Form_RicezioneClienti() override;

 private Q_SLOTS:
  void on_vkOptionButtonClienti_toggled(bool scelta);
  void on_Cmd_Avvia_clicked();

 private:
  /// True if the screen is to be unloaded.
  bool lavora();
  void preparaBarra();
  customers::EsitoRicezione eseguiScelta();
  customers::EsitoRicezione azzeraFatture();
  customers::EsitoRicezione riceviFatture();
  customers::EsitoRicezione riceviClienti();
  void raccontaRicezione(customers::EsitoRicezione esito, const QString& testo, bool intera);

  std::unique_ptr<Ui::Form_RicezioneClienti> ui_;
};
