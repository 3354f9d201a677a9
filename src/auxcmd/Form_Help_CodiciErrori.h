#pragma once

#include <QDialog>
#include <memory>

struct Contesto;
namespace Ui {
class Form_Help_CodiciErrori;
}

/// "Help Codici Errori": the help text on the till's error codes from the application folder, to be read.
class Form_Help_CodiciErrori : public QDialog {
  Q_OBJECT

 public:
  /// Throws Errore 53 if the file is not there, 75 or 321 if it cannot be read.
  explicit Form_Help_CodiciErrori(Contesto& contesto);
  ~Form_Help_CodiciErrori() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::unique_ptr<Ui::Form_Help_CodiciErrori> ui_;
};

namespace auxcmd {

/// Opens the help text modally; tells that it is not there where it is not.
void MostraCodiciErrori(Contesto& contesto);

}  // namespace auxcmd
