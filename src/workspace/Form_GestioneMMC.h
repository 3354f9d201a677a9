#pragma once

#include <cstdint>
#include <memory>

#include "core/archive_workspace.h"

namespace Ui {
class Form_GestioneMMC;
}

/// The front door to one article archive: create or open it, import articles, and the four screens over it.
/// Its four commands and the import work only while an archive is open.
class Form_GestioneMMC : public AreaArchivio {
  Q_OBJECT

 public:
  explicit Form_GestioneMMC(Contesto& contesto);
  ~Form_GestioneMMC() override;

  /// Builds the checksum table of the open archive; failures have been shown. Always 0. No command calls it:
  /// it is there for whoever prepares an archive for a till.
  std::int16_t CreaIndiceEAN();

 protected:
  /// With none open `mnuApri`, which an opening switches off, is on again.
  void mostraAperto(bool aperto) override;

 private Q_SLOTS:
  void on_mnuNuovo_triggered();
  void on_mnuApri_triggered();
  void on_mnuImporta_triggered();
  void on_Cmd_Articoli_clicked();
  void on_Cmd_Down_clicked();
  void on_Cmd_Upl_clicked();
  void on_Cmd_Venduto_clicked();

 private:
  void vesti();
  void apri();
  void importa();
  void apriReport(const QString& report);

  std::unique_ptr<Ui::Form_GestioneMMC> ui_;
};
