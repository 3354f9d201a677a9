#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>

#include "auxcmd/bench_view.h"
#include "core/screen.h"

class QButtonGroup;
namespace Ui {
class BancoProva;
}
namespace auxcmd {
struct BancoDiProva;
}

/// A screen of the test bench: a list of canned sequences, of which one click sends one.
class BancoProva : public Schermo<QDialog> {
  Q_OBJECT

 public:
  /// `banco` outlives it.
  BancoProva(Contesto& contesto, const auxcmd::BancoDiProva& banco);
  ~BancoProva() override;

  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;

 private Q_SLOTS:
  void on_Cmd_Avvio_clicked();
  void on_vkCommandEsci_clicked();

 private:
  void creaOpzioni();
  void invia();
  void svuotaCoda();
  void diciInviata(const QString& sequenza);

  const auxcmd::BancoDiProva& banco_;
  std::unique_ptr<Ui::BancoProva> ui_;
  std::unique_ptr<auxcmd::VistaBanco> vista_;
  QButtonGroup* opzioni_;
  /// Sequences that wait for the one on the line to end: a second click is not to spoil the first.
  QStringList coda_;
  bool inCorso_ = false;
};
