#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "core/screen.h"

class QRadioButton;
namespace Ui {
class Form_GestioneCodiceTastiera;
}

/// "Scelta ECR": the machine whose keyboard is worked on, and with it the width of a receipt line. It opens
/// with the machine chosen before.
class Form_GestioneCodiceTastiera : public Schermo<QWidget> {
  Q_OBJECT

 public:
  explicit Form_GestioneCodiceTastiera(Contesto& contesto);
  ~Form_GestioneCodiceTastiera() override;

  /// The machine's number: the index of the first option that is set, in their order; nothing while none is.
  std::optional<int> macchina() const;

 protected:
  /// Enter and the double click on an option confirm it; the one with the focus is in view.
  bool eventFilter(QObject* opzione, QEvent* evento) override;

 private Q_SLOTS:
  void on_Cmd_Conferma_clicked();

 private:
  void creaOpzioni();
  void conferma();

  std::unique_ptr<Ui::Form_GestioneCodiceTastiera> ui_;
  std::vector<QRadioButton*> opzioni_;
};
