#pragma once

#include <QMainWindow>
#include <memory>

#include "articles/csv_import.h"

struct Contesto;
class Schermate;
namespace Ui {
class Form_GestioneMMC;
}

/// The front door to one article archive: create or open it, import articles, and the four screens over it.
/// Its four commands and the import work only while an archive is open.
class Form_GestioneMMC : public QMainWindow {
  Q_OBJECT

 public:
  explicit Form_GestioneMMC(Contesto& contesto, articles::Orologio orologio = QDateTime::currentDateTime);
  ~Form_GestioneMMC() override;

  /// Builds the checksum table of the open archive; failures have been shown. Always 0. No command calls it:
  /// it is there for whoever prepares an archive for a till.
  std::int16_t CreaIndiceEAN();

 protected:
  void closeEvent(QCloseEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

 private Q_SLOTS:
  void on_mnuNuovo_triggered();
  void on_mnuApri_triggered();
  void on_mnuImporta_triggered();
  void on_mnuClose_triggered();
  void on_Cmd_Articoli_clicked();
  void on_Cmd_Down_clicked();
  void on_Cmd_Upl_clicked();
  void on_Cmd_Venduto_clicked();
  void on_Cmd_Esci_clicked();

 private:
  template <typename Corpo>
  void comando(const char* nome, Corpo&& corpo);
  template <typename Corpo>
  void comandoFile(const char* nome, Corpo&& corpo);

  void vesti();
  void nuovo();
  void apri();
  void importa();
  bool comandiAbilitati() const;
  void abilitaComandi(bool abilitati);
  void apriSchermata(const char* nome);
  void aggiorna();
  void esito(const QString& testo);

  Contesto& contesto_;
  articles::Orologio orologio_;
  std::unique_ptr<Ui::Form_GestioneMMC> ui_;
};

/// Registers the workspace under its name.
void registraGestioneMMC(Schermate& schermate);
