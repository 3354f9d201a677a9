#pragma once

#include <QDialog>
#include <memory>

#include "auxcmd/bench_view.h"
#include "core/screen.h"

namespace Ui {
class Form_Test;
}

/// "Test": a script of key sequences, written here, kept in its file and sent line by line.
class Form_Test : public Schermo<QDialog> {
  Q_OBJECT

 public:
  explicit Form_Test(Contesto& contesto);
  ~Form_Test() override;

  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;

 private Q_SLOTS:
  void on_Cmd_Invia_clicked();
  void on_Cmd_Salva_clicked();
  void on_vkCommandReset_clicked();
  void on_Cmd_Esci_clicked();

 private:
  void carica();
  void ferma();
  /// False where the file is not there, which was told.
  bool presente();
  void salva();
  void invia();

  std::unique_ptr<Ui::Form_Test> ui_;
  std::unique_ptr<auxcmd::VistaBanco> vista_;
  bool inCorso_ = false;
};
