#pragma once

#include <QDialog>
#include <memory>

struct Contesto;
namespace Ui {
class Form_STATO_ECR;
}

/// "Stato ECR": what the till told last about itself, to be read. Filled when it is made.
class Form_STATO_ECR : public QDialog {
  Q_OBJECT

 public:
  explicit Form_STATO_ECR(Contesto& contesto);
  ~Form_STATO_ECR() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void aggiungi(int posto);

  std::unique_ptr<Ui::Form_STATO_ECR> ui_;
};
