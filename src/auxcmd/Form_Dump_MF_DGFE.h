#pragma once

#include <QDialog>
#include <memory>

#include "core/screen.h"

namespace Ui {
class Form_Dump_MF_DGFE;
}

/// "Dump Memoria": what was dumped into "TempDump_Memory.dat", to be read and to be kept under another name.
class Form_Dump_MF_DGFE : public Schermo<QDialog> {
  Q_OBJECT

 public:
  explicit Form_Dump_MF_DGFE(Contesto& contesto);
  ~Form_Dump_MF_DGFE() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private Q_SLOTS:
  void on_Cmd_Salva_clicked();

 private:
  void carica();
  void mostra(const QString& file);
  void salva();

  std::unique_ptr<Ui::Form_Dump_MF_DGFE> ui_;
};
