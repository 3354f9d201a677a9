#pragma once

#include <QMainWindow>
#include <array>
#include <cstdint>
#include <memory>

#include "core/screen.h"

namespace Ui {
class Form_GestioneMMC;
}

/// The front door to one article archive: create or open it, import articles, and the four screens over it.
/// Its four commands and the import work only while an archive is open.
class Form_GestioneMMC : public Schermo<QMainWindow> {
  Q_OBJECT

 public:
  explicit Form_GestioneMMC(Contesto& contesto);
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
  void on_mnuManuale_triggered();
  void on_Cmd_Articoli_clicked();
  void on_Cmd_Down_clicked();
  void on_Cmd_Upl_clicked();
  void on_Cmd_Venduto_clicked();
  void on_Cmd_Esci_clicked();

 private:
  template <typename Corpo>
  void eseguiSuFile(const char* procedura, Corpo&& corpo);

  void vesti();
  void nuovo();
  void apri();
  void importa();
  void apriReport(const QString& report);
  void chiudi();
  /// File name of the archive that was opened last.
  static QString nomeArchivio();
  void raccontaAperto();
  /// The four that an archive serves.
  std::array<QWidget*, 4> comandi() const;
  /// To the control that had it before a command, or to the next step where that one is off now.
  void ridaiIlFuoco(QWidget* prima);
  void abilitaComandi(bool abilitati);
  /// What their tooltips say while they are off.
  void spiegaComandi(const QString& perche);
  /// The state that the screen has with an archive open or with none, `mnuApri` aside.
  void mostraAperto(bool aperto);
  /// The one behind a closing, wanted or not: `mnuApri` is on again.
  void mostraChiuso();
  void apriSchermata(const char* procedura, const char* nome);
  void aggiorna();

  std::unique_ptr<Ui::Form_GestioneMMC> ui_;
};
