#pragma once

#include <QWidget>
#include <memory>

struct Contesto;
namespace Ui {
class Form_Provvisoria;
}

/// Stands for a workspace whose screens this build does not have: its title, what to know, and the way back
/// to the menu.
class Form_Provvisoria : public QWidget {
  Q_OBJECT

 public:
  /// `nome`: the screen's name, which becomes the object's.
  Form_Provvisoria(Contesto& contesto, const QString& nome, const QString& titolo);
  ~Form_Provvisoria() override;

 protected:
  void keyPressEvent(QKeyEvent* evento) override;
  void closeEvent(QCloseEvent* evento) override;

 private:
  Contesto& contesto_;
  std::unique_ptr<Ui::Form_Provvisoria> ui_;
};
