#pragma once

#include <QDialog>
#include <memory>

#include "core/date_combos.h"
#include "core/list_table.h"
#include "core/screen.h"
#include "customers/invoice_search.h"

namespace Ui {
class Form_ArchivioFattureClienti;
}

/// "Archivio Fatture Clienti": the invoices of the open archive, customer by customer with their sums,
/// searched by period, name, VAT number and number, and their export. While the filter of the registry is on
/// it shows the invoices of one customer, and nothing else can be looked for.
class Form_ArchivioFattureClienti : public Schermo<QDialog> {
  Q_OBJECT

 public:
  /// Fills itself from the open archive; a failure of the list ends the program.
  explicit Form_ArchivioFattureClienti(Contesto& contesto);
  ~Form_ArchivioFattureClienti() override;

  /// However the screen goes, the filter of the registry goes with it.
  void done(int esito) override;

 private Q_SLOTS:
  void on_Cmd_Cerca_clicked();
  void on_Cmd_Reset_clicked();
  void on_Cmd_Refresh_clicked();
  void on_Cmd_Export_clicked();
  void on_Cmd_Esci_clicked();
  void on_vkTextBoxPartitaIVA_textChanged(const QString& testo);
  void on_vkTextBoxRagioneSociale_textChanged();
  void on_vkTextBoxNumFattura_textChanged();

 private:
  void preparaTasti();
  void InitDataOra();
  void RefreshForm();
  void bloccaRicerca();
  void cerca();
  void mostraFiltro();
  void avvisaApostrofo();
  customers::RicercaFatture ricerca() const;
  customers::Giorno giorno(DataDiSchermo quale) const;
  void rifiutaGiorno(DataDiSchermo quale);
  void mostraEsito(const elenco::EsitoElenco& esito, const QString& periodo);

  std::unique_ptr<Ui::Form_ArchivioFattureClienti> ui_;
};
