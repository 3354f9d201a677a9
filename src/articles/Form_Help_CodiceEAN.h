#pragma once

#include <QDialog>
#include <memory>

struct Contesto;
namespace Ui {
class Form_Help_CodiceEAN;
}

/// "Help Codice EAN": the help text on article codes from the application folder, to be read.
class Form_Help_CodiceEAN : public QDialog {
  Q_OBJECT

 public:
  /// Throws Errore 53 if the file is not there, 75 or 321 if it cannot be read.
  explicit Form_Help_CodiceEAN(Contesto& contesto);
  ~Form_Help_CodiceEAN() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::unique_ptr<Ui::Form_Help_CodiceEAN> ui_;
};
