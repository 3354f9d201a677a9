#pragma once

#include <QMainWindow>
#include <cstdint>
#include <memory>
#include <optional>

#include "core/screen.h"

class QAction;
class QLabel;

namespace Ui {
class MDIForm_PRG;
}

/// "Programmazione ECR": the frame in which a configuration is created, opened, edited and exchanged with the
/// till. One editor at a time stands inside it; its commands are on once a configuration is loaded.
class MDIForm_PRG : public Schermo<QMainWindow> {
  Q_OBJECT

 public:
  explicit MDIForm_PRG(Contesto& contesto);
  ~MDIForm_PRG() override;

  /// 1 if a screen of that name is open, 0 if not.
  std::uint16_t DammiFormOpen(const QString& nome) const;

 protected:
  void closeEvent(QCloseEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  void changeEvent(QEvent* evento) override;
  /// Esc leaves the editor that is open, and the frame where none is.
  void keyPressEvent(QKeyEvent* evento) override;

 private Q_SLOTS:
  void on_mnuNuova_triggered();
  void on_mnuModify_triggered();
  void on_mnuCrea_triggered();
  void on_mnuInvio_triggered();
  void on_mnuEsci_triggered();
  void on_mnuManuale_triggered();

 private:
  /// What a Yes to the guard's question is followed by.
  enum class Ricarica { Si, No };

  void vesti();
  QAction& tasto(int posizione) const;
  void premuto(int posizione);
  void azione(int posizione);
  /// Saves what was modified if the person wants to. False where that failed: the command must not go on.
  bool guardia(Ricarica ricarica);
  template <typename Corpo>
  void conGuardia(const char* procedura, Ricarica ricarica, Corpo&& corpo);

  void nuova();
  void modifica();
  void crea();
  void invio();
  void articoli();
  /// Version and content of the configuration in use into memory: what the first panel then says, or nothing
  /// where it was refused, which was told.
  std::optional<QString> carica();
  std::optional<QString> versioneGiusta(const QString& percorso);
  /// The commands that need a configuration go on, and an editor of the one before goes. `accanto`: files of
  /// those names were there, and have been kept.
  void aperta(const QString& verbo, const QString& pannello, bool accanto);

  void apriEditor(const char* nome, const QString& stato);
  void chiudiEditor(const QString& tranne = {});
  void mostraBenvenuto();
  void abilita(bool abilitati);
  void adattaBarra();

  std::unique_ptr<Ui::MDIForm_PRG> ui_;
  /// The panels of the status bar: the open file, and what is being worked on.
  QLabel* pannello_;
  QLabel* stato_;
};
