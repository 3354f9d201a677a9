#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class PannelloECR;
}

/// The header that every link screen carries: address, own addresses, "Connetti", and what the till said of
/// itself. A promoted widget in the screens' .ui files; its controls are found by name inside the screen.
class PannelloECR : public QWidget {
  Q_OBJECT

 public:
  explicit PannelloECR(QWidget* parent = nullptr);
  ~PannelloECR() override;

 Q_SIGNALS:
  /// CmdInviaModECR was clicked.
  void connetti();

 protected:
  /// Enter in the address box clicks "Connetti".
  void keyPressEvent(QKeyEvent* evento) override;

 private:
  std::unique_ptr<Ui::PannelloECR> ui_;
};
