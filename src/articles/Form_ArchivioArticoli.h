#pragma once

#include <QDialog>
#include <array>
#include <memory>
#include <optional>

#include "articles/archive_fields.h"
#include "articles/archive_grid.h"

class QLineEdit;
class Schermate;
struct Contesto;
namespace Ui {
class Form_ArchivioArticoli;
}

/// " PLU/ARTICOLI - " and the path: finding and correcting the articles of the open archive.
class Form_ArchivioArticoli : public QDialog {
  Q_OBJECT

 public:
  /// Fills the grid under the wait box; a failure of the fill ends the program.
  explicit Form_ArchivioArticoli(Contesto& contesto);
  ~Form_ArchivioArticoli() override;

  articles::CampiArticolo campi() const;
  /// Turns the six commands that a deletion must not meet off, or on again.
  void BloccaComandi(bool bloccati);
  void Cancella_TextBox();
  /// Every article again, the grid's shape with it.
  void Tasto_Refresh();

 private Q_SLOTS:
  void on_Vmd_Cerca_clicked();
  void on_Cmd_Modifica_clicked();
  void on_Cmd_Reset_clicked();
  void on_Cmd_Refresh_clicked();
  void on_Cmd_Export_clicked();
  void on_vkCommandHELP_clicked();
  void on_Cmd_Esci_clicked();

 private:
  template <typename Corpo>
  void comando(const char* nome, Corpo&& corpo);
  /// The fields, in the order of the grid's columns.
  std::array<QLineEdit*, articles::kColonneArticoli> caselle() const;
  /// Writes a text into the field of a column, whole.
  void scriviCasella(int colonna, const QString& testo);
  void vesti();
  void sorveglia(QLineEdit& campo, articles::FiltroTasto filtro,
                 std::optional<articles::Rifiuto> (*controllo)(const QString&) = nullptr);
  void apri();
  void GestGridCentral();
  articles::GrigliaArticoli destinazione(bool colorata);
  void scriviRiga(int riga, const articles::RigaArticolo& articolo, bool colorata);
  void scegliRiga(int riga);
  void cerca();
  void modifica();
  void esporta();
  void aiuto();

  Contesto& contesto_;
  std::unique_ptr<Ui::Form_ArchivioArticoli> ui_;
};

void registraArchivioArticoli(Schermate& schermate);
