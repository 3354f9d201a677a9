#pragma once

#include <QProgressBar>
#include <QTimer>

/// A bar for a wait whose length nobody knows. The style's own moves sixty times a second, which costs more
/// of a processor than the slow line that is waited for.
class BarraAttesa : public QProgressBar {
  Q_OBJECT

 public:
  /// Between two pictures, in milliseconds.
  static constexpr int kBattito = 120;

  explicit BarraAttesa(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QTimer battito_{this};
  int passo_ = 0;
};
