#pragma once

#include <QDialog>
#include <memory>

#include "articles/archive_fields.h"
#include "core/screen.h"

class PrimaryCommand;
class QLineEdit;
namespace elenco {
class Caselle;
}  // namespace elenco
namespace Ui {
class Form_ArchivioArticoli;
}

/// " PLU/ARTICOLI - " and the path: finding and correcting the articles of the open archive.
class Form_ArchivioArticoli : public Schermo<QDialog> {
  Q_OBJECT

 public:
  /// Fills the grid under the wait box; a failure of the fill ends the program.
  explicit Form_ArchivioArticoli(Contesto& contesto);
  ~Form_ArchivioArticoli() override;

  /// Turns the six commands that a deletion must not meet off, or on again.
  void BloccaComandi(bool bloccati);
  void Cancella_TextBox();

 protected:
  void keyPressEvent(QKeyEvent* evento) override;

 private Q_SLOTS:
  void on_Vmd_Cerca_clicked();
  void on_Cmd_Modifica_clicked();
  void on_Cmd_Reset_clicked();
  void on_Cmd_Refresh_clicked();
  void on_Cmd_Export_clicked();
  void on_vkCommandHELP_clicked();
  void on_Cmd_Esci_clicked();
  void on_MSFlexGridArticoli_cellClicked(int riga);

 private:
  articles::CampiArticolo campi() const;
  void vesti();
  void preparaTasti();
  void sorveglia(QLineEdit& campo, KeyRule regola = {}, FieldCheck controllo = nullptr);
  void apri();
  void modifica();
  /// The primary command, and the mark in the list, follow what stands in the fields.
  void seguiCampi();
  void mostraQuanti();
  void rifiuta();
  void salvata();

  std::unique_ptr<Ui::Form_ArchivioArticoli> ui_;
  std::unique_ptr<elenco::Caselle> caselle_;
  std::unique_ptr<PrimaryCommand> primario_;
  /// The fields as the picked row or the last save left them; without a slot with none picked.
  articles::CampiArticolo scelta_;
  bool daSalvare_ = false;
  /// While a row goes into the fields, one after the other.
  bool copia_ = false;
};
