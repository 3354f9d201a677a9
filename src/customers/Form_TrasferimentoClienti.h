#pragma once

#include <cstdint>
#include <memory>

#include "customers/customer_image.h"
#include "ecrlink/link_window.h"

namespace Ui {
class Form_TrasferimentoClienti;
}

/// "Trasferimento Anagrafica Clienti": sends the customers of the archive, all of them, to the till.
class Form_TrasferimentoClienti : public FinestraLink {
  Q_OBJECT

 public:
  explicit Form_TrasferimentoClienti(Contesto& contesto);
  ~Form_TrasferimentoClienti() override;

 protected:
  QString avvertenza() const override;

 private Q_SLOTS:
  void on_Cmd_Avvia_clicked();

 private:
  /// True if the screen is to be unloaded.
  bool lavora();
  customers::Invio invia();
  void raccontaInvio(const customers::Invio& invio);

  std::unique_ptr<Ui::Form_TrasferimentoClienti> ui_;
  /// Highest customer code of the archive when the screen was loaded; 0 for none, -1 where the store failed.
  std::int32_t codiceMassimo_;
};
