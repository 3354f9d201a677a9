#pragma once

#include <memory>

#include "core/archive_workspace.h"
#include "customers/statement_batch.h"

class ElidedLabel;
namespace Ui {
class Form_GestioneClienti;
}

/// The front door to one customer archive: create or open it, and the four screens over it. Its four commands
/// work only while an archive is open.
class Form_GestioneClienti : public AreaArchivio {
  Q_OBJECT

 public:
  explicit Form_GestioneClienti(Contesto& contesto);
  ~Form_GestioneClienti() override;

  /// Runs a batch of statements on the open archive. No command calls it: it is there for whoever mends an
  /// archive.
  customers::EsitoIstruzioni ImportaIstruzioni();

 protected:
  void aggiorna() override;

 private Q_SLOTS:
  void on_mnuNuovo_triggered();
  void on_mnuApri_triggered();
  void on_Cmd_AnagraficaClienti_clicked();
  void on_Cmd_ArchivioFatture_clicked();
  void on_Cmd_Down_clicked();
  void on_Cmd_Upl_clicked();

 private:
  void vesti();
  void apri();
  void trasferisci();
  void raccontaIstruzioni(const customers::EsitoIstruzioni& esito);

  std::unique_ptr<Ui::Form_GestioneClienti> ui_;
  /// The one of the status bar, which owns it.
  ElidedLabel* pannello_;
};
