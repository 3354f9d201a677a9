#pragma once

#include <QDialog>
#include <memory>

struct Contesto;
namespace Ui {
class frmAbout;
}

/// What the program is, and the way to the system's own information tool.
class frmAbout : public QDialog {
  Q_OBJECT

 public:
  explicit frmAbout(Contesto& contesto);
  ~frmAbout() override;

 private:
  Contesto& contesto_;
  std::unique_ptr<Ui::frmAbout> ui_;
};
