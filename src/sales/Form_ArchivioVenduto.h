#pragma once

#include <QDialog>
#include <memory>

#include "core/reactions.h"
#include "sales/sales_rows.h"

struct Contesto;
class Schermate;
namespace Ui {
class Form_ArchivioVenduto;
}

/// "Archivio Venduto": the sales of the open archive with their totals, filtered by day, code and
/// description, and their export.
class Form_ArchivioVenduto : public QDialog {
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
  void on_MSFlexGridVenduto_cellClicked(int riga, int colonna);

 private:
  template <typename Corpo>
  void comando(const char* nome, Corpo&& corpo);
  void vesti();
  void preparaSelettori();

  /// The empty grid with its headings.
  void GestGridCentral();
  void RiempiGridCentral();
  void RefreshForm();
  void cerca();
  void esporta();

  /// Puts the rows of a statement into the grid, and the totals behind them.
  void riempi(const QString& sql, sales::Elenco elenco);
  void preparaRighe(int quante);
  void riempiRighe(sales::LettoreVenduto& righe, sales::Elenco elenco);
  /// False if the list ends here.
  bool riempiRiga(const sales::LettoreVenduto& righe, int riga, sales::Elenco elenco,
                  sales::SommeVenduto& somme);
  template <typename Passo>
  reazioni::Esito passo(sales::Elenco elenco, Passo&& passo);
  void SetTailGriglia(int riga, const sales::SommeVenduto& somme);
  void pulisciRiga(int riga);
  void elencoVuoto();
  void mostraQuante(int righe);

  Contesto& contesto_;
  std::unique_ptr<Ui::Form_ArchivioVenduto> ui_;
};

void registraArchivioVenduto(Schermate& schermate);
