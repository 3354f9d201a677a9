#pragma once

#include <QDialog>
#include <memory>

#include "core/screen.h"
#include "sales/sales_rows.h"

namespace Ui {
class Form_ArchivioVenduto;
}

/// "Archivio Venduto": the sales of the open archive with their totals, filtered by day, code and
/// description, and their export.
class Form_ArchivioVenduto : public Schermo<QDialog> {
  Q_OBJECT

 public:
  /// Fills itself from the open archive; a file without the table of sales ends the program.
  explicit Form_ArchivioVenduto(Contesto& contesto);
  ~Form_ArchivioVenduto() override;

 private Q_SLOTS:
  void on_Cmd_Cerca_clicked();
  void on_Cmd_Reset_clicked();
  void on_Cmd_Refresh_clicked();
  void on_Cmd_Export_clicked();
  void on_Cmd_Esci_clicked();
  void on_MSFlexGridVenduto_cellClicked(int riga);

 private:
  void preparaSelettori();
  void RiempiGridCentral();
  void RefreshForm();
  void cerca();
  void preparaTasti();
  void mostraQuante(const elenco::EsitoElenco& esito, sales::Elenco quale);

  std::unique_ptr<Ui::Form_ArchivioVenduto> ui_;
};
